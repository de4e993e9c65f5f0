#include "ui/messages/MessagePrinting.h"

#include <QPagedPaintDevice>
#include <QPainter>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QTextCursor>

#include "core/base/StringTable.h"
#include "messaging/RecordText.h"
#include "platform/CodePage.h"
#include "platform/Text.h"
#include "ui/QtText.h"
#include "ui/messages/MessageDocument.h"

namespace tarnbridge {
namespace {

constexpr qreal screenResolution = 96;        // the dots an inch that everything is laid out in
constexpr qreal gap = 10;                     // between two messages, in such dots
constexpr QMarginsF margins(15, 15, 15, 15);  // in millimetres

QPalette PaperPalette() {
    QPalette palette(Qt::white);
    for (const QPalette::ColorRole role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
        palette.setColor(role, Qt::black);
    palette.setColor(QPalette::Base, Qt::white);
    return palette;
}

/// Whose it is, and when.
QString HeadOf(const PrintedMessage& message) {
    const SmsRecord& record = message.record;
    const Word direction = record.messageType == SmsRecord::deliver ? Word::ReaderFrom : Word::ReaderTo;
    QString head = QWords(direction) + u' ' + ToQString(CodePage::System().ToText(record.address.number));
    if (record.timestamp.IsSet())
        head += u'\n' + QWords(Word::ReaderTime) + u' ' + ToQString(Utf8ToText(record.timestamp.ToText()));
    return head + u'\n' + QWords(Word::ReaderFolder) + u' ' + message.folder;
}

/// Puts documents one below the other on pages.
class Pages {
public:
    explicit Pages(QPagedPaintDevice& device) : device_(device), painter_(&device) {
        const qreal scale = device.logicalDpiX() / screenResolution;
        painter_.scale(scale, scale);
        size_ = QSizeF(device.width() / scale, device.height() / scale);
    }

    bool IsReady() const { return painter_.isActive(); }
    qreal Width() const { return size_.width(); }

    /// Two documents that belong together, with a line between them.
    void Put(QTextDocument& head, QTextDocument& body) {
        const qreal height = head.size().height() + body.size().height();
        if (used_ > 0 && used_ + height > size_.height()) Turn();
        Draw(head);
        if (used_ + body.size().height() <= size_.height()) {
            Draw(body);
        } else {
            // Pages of a document leave no line cut in two. All are as high as the first one, which has the
            // head above it.
            const QSizeF room(size_.width(), size_.height() - used_);
            body.setPageSize(room);
            for (int page = 0; page < body.pageCount(); ++page) {
                if (page > 0) Turn();
                painter_.save();
                painter_.translate(0, used_ - page * room.height());
                body.drawContents(&painter_, QRectF(QPointF(0, page * room.height()), room));
                painter_.restore();
            }
            used_ = size_.height();
        }
        used_ += gap;
        painter_.setPen(Qt::gray);
        if (used_ < size_.height()) painter_.drawLine(QPointF(0, used_), QPointF(size_.width(), used_));
        used_ += gap;
    }

private:
    void Turn() {
        device_.newPage();
        used_ = 0;
    }

    void Draw(QTextDocument& document) {
        painter_.save();
        painter_.translate(0, used_);
        document.drawContents(&painter_);
        painter_.restore();
        used_ += document.size().height();
    }

    QPagedPaintDevice& device_;
    QPainter painter_;
    QSizeF size_;
    qreal used_ = 0;
};

void PreparePrinter(QPrinter& printer) {
    printer.setDocName(QWords(Word::FeatureMessages));
    printer.setCreator(QWords(Word::ProgramName));
    printer.setPageMargins(margins, QPageLayout::Millimeter);
}

}  // namespace

bool PrintMessages(QPagedPaintDevice& device, const std::vector<PrintedMessage>& messages) {
    Pages pages(device);
    if (!pages.IsReady()) return false;
    for (const PrintedMessage& message : messages) {
        QTextDocument head;
        head.setTextWidth(pages.Width());
        QTextCursor cursor(&head);
        QTextCharFormat bold;
        bold.setFontWeight(QFont::Bold);
        bold.setForeground(Qt::black);
        cursor.insertText(HeadOf(message), bold);

        MessageDocument body(nullptr);
        body.SetPalette(PaperPalette());
        body.setTextWidth(pages.Width());
        SmsRecord record = message.record;
        if (record.unreadable)
            body.ShowText(Words(Word::UnreadableMessage, {ShownText(record)}));
        else if (record.EnsureEmsMessage())
            body.Show(ShownMessage(*record.emsMessage.Get()));
        else
            body.ShowText(ShownText(record));
        pages.Put(head, body);
    }
    return true;
}

void AskAndPrint(const std::vector<PrintedMessage>& messages, QWidget* window) {
    QPrinter printer(QPrinter::HighResolution);
    PreparePrinter(printer);
    QPrintDialog dialog(&printer, window);
    dialog.setObjectName(QStringLiteral("print"));
    if (dialog.exec() == QDialog::Accepted) PrintMessages(printer, messages);
}

void ShowPrintPreview(const std::vector<PrintedMessage>& messages, QWidget* window) {
    QPrinter printer(QPrinter::HighResolution);
    PreparePrinter(printer);
    QPrintPreviewDialog dialog(&printer, window);
    dialog.setObjectName(QStringLiteral("preview"));
    QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested, &dialog,
                     [&messages](QPrinter* target) { PrintMessages(*target, messages); });
    dialog.exec();
}

}  // namespace tarnbridge
