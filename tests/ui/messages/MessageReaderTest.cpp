#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QMimeData>
#include <QTest>

#include "messaging/GsmAlphabet.h"
#include "ui/messages/MessageReader.h"
#include "ui/messages/WidgetSupport.h"

namespace tarnbridge::test {
namespace {

class ReaderTest : public EmsTest {
protected:
    QString Label(const char* name) { return reader.findChild<QLabel*>(QLatin1String(name))->text(); }

    SmsRecord Record(int type) {
        SmsRecord record;
        record.messageType = type;
        record.address = SmsAddress("+4670<b>1", 0);
        record.timestamp = {.year = 24, .month = 5, .day = 6, .hour = 7, .minute = 8, .second = 9};
        record.text8 = "a\x1B{ <i>b</i>\nc";
        return record;
    }

    MessageReader reader;
};

TEST_F(ReaderTest, ShowsAMessageAndNothingInItIsMarkup) {
    EXPECT_TRUE(reader.currentWidget()->findChildren<MessageTextView*>().isEmpty());
    reader.Show(Record(SmsRecord::deliver), QStringLiteral("Inbox"));
    EXPECT_EQ(Label("readerAddress"), QStringLiteral("+4670<b>1"));
    EXPECT_TRUE(Label("readerTime").startsWith(QStringLiteral("2024/05/06")))
        << Label("readerTime").toStdString();
    EXPECT_EQ(Label("readerFolder"), QStringLiteral("Inbox"));
    EXPECT_EQ(reader.Text().toPlainText(), QStringLiteral("a{ <i>b</i>\nc"));
    EXPECT_TRUE(reader.Text().isReadOnly());
    reader.Clear();
    EXPECT_TRUE(reader.Text().toPlainText().isEmpty());
}

TEST_F(ReaderTest, CopiesPlainText) {
    SmsRecord record;
    record.emsMessage = EmsHandle::Make(0);
    MessageEditor editor = MakeEditor();
    Type(editor, u"one\n");
    editor.ApplyFormat(0, 3, bold);
    editor.Insert(4, MessageObject::PredefinedSound(1));
    Type(editor, u"two");
    EmsCopy(record.emsMessage.Get(), &editor.Message());
    reader.Show(record, {});
    reader.show();
    QTest::keyClick(&reader.Text(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&reader.Text(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("one\ntwo"));
    EXPECT_FALSE(QApplication::clipboard()->mimeData()->hasHtml());
    EXPECT_EQ(reader.Text().accessibleDescription(), QStringLiteral("Sound 1: Chimes low"));
    QTest::keyClick(&reader.Text(), Qt::Key_X);
    EXPECT_EQ(reader.Text().Document().Shown().Text(), editor.Shown().Text());
}

TEST_F(ReaderTest, ATextThatNoMessageHoldsIsShownAllTheSame) {
    SmsRecord record;
    record.text8 = std::string(5000, 'x') + '\x01' + "end";
    reader.Show(record, {});
    EXPECT_EQ(reader.Text().toPlainText(), QString(5000, u'x') + QStringLiteral(" end"));
    reader.Show(Record(SmsRecord::submit), {});
    EXPECT_EQ(reader.Text().toPlainText(), QStringLiteral("a{ <i>b</i>\nc"));

    SmsRecord parts;
    for (int i = 1; i <= 12; ++i)
        parts.rawParts.push_back(std::string("\5\0\3\1\14", 5) + static_cast<char>(i) +
                                 std::string(152, 'x') + "\x10");
    parts.hasHeader = 1;
    reader.Show(parts, {});
    EXPECT_EQ(reader.Text().toPlainText().count(u'\u0394'), 12) << "no part is cut";
    EXPECT_EQ(Label("readerTime"), QString()) << "it has none";

    SmsRecord unreadable;
    unreadable.unreadable = "0791<b>";
    reader.Show(unreadable, {});
    EXPECT_EQ(reader.Text().toPlainText(), QStringLiteral("Unreadable: 0791<b>"));
}

}  // namespace
}  // namespace tarnbridge::test
