#pragma once

#include <QFrame>

class QAction;
class QHBoxLayout;
class QLabel;

namespace tarnbridge {

/// A line in a window that tells the user something without stopping him; hidden while there is nothing.
class NoteLine : public QFrame {
    Q_OBJECT

public:
    explicit NoteLine(QWidget* parent = nullptr);

    /// Shows the words, and has them read out to those who don't see them.
    void Show(const QString& words);
    void Clear() { hide(); }

    /// A command as a button beside the words.
    void Offer(QAction* command);

    QString Words() const;

protected:
    void changeEvent(QEvent* event) override;

private:
    void Draw();

    QLabel* const icon_;
    QLabel* const words_;
    QHBoxLayout* const layout_;
};

}  // namespace tarnbridge
