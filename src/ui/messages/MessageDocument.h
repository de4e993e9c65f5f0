#pragma once

#include <QPalette>
#include <QTextDocument>
#include <QTextObjectInterface>
#include <QTimer>

#include "messaging/ShownMessage.h"

namespace tarnbridge {

/// A message as a text document. Positions are those of the ShownMessage, each object is one character.
/// Pictures are drawn enlarged by whole factors, animations run in place while SetAnimated is on, and what
/// has no image is a label with its name. Nothing else changes the document; it can't undo.
class MessageDocument : public QTextDocument, public QTextObjectInterface {
    Q_OBJECT
    Q_INTERFACES(QTextObjectInterface)

public:
    explicit MessageDocument(QObject* parent);

    /// Shows a message in place of the one before; what they have in common isn't touched, nor are cursors in
    /// it.
    /// \param atEnd  the look of what would be typed at the end, which a last line without characters has
    void Show(const ShownMessage& message, const EmsTextFormat& atEnd = {});

    /// Shows a bare text, of any length, as it stands.
    void ShowText(const std::u16string& text);

    /// Writes the whole document anew, for the case that somebody else has changed it.
    void Rewrite();

    const ShownMessage& Shown() const { return shown_; }

    /// The colours to use from now on.
    void SetPalette(const QPalette& palette);

    /// How much larger than normal images are shown; 1 at first.
    void SetScale(qreal scale);

    /// Whether animations run. All share one timer, which stands still where there is none.
    void SetAnimated(bool animated);

    /// Where the object at a position stands, and the position of the object at a place, or -1.
    QRectF ObjectRect(int position) const;
    int ObjectAt(const QPointF& place) const;

    /// What the objects are, in their order, for those who don't see them.
    QString ObjectWords() const;

    QSizeF intrinsicSize(QTextDocument* document, int position, const QTextFormat& format) override;
    void drawObject(QPainter* painter, const QRectF& rect, QTextDocument* document, int position,
                    const QTextFormat& format) override;

private:
    template <typename Use>
    void ForEachPiece(int from, int to, Use use) const;
    void Write(int from, int oldEnd, int newEnd);
    void Align(int from, int to);
    QTextCharFormat FormatOf(int position) const;
    qreal DeviceRatio() const;
    int FactorOf(const MessageObject& object) const;
    int FrameAt(const MessageObject& object, int tick) const;
    void Tick();
    void RunTimer();

    ShownMessage shown_;
    EmsTextFormat atEnd_;
    QPalette palette_;
    qreal scale_ = 1;
    bool animated_ = false;
    int tick_ = 0;
    QTimer timer_;
};

}  // namespace tarnbridge
