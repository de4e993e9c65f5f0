#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPointer>
#include <QSignalSpy>
#include <QTest>

#include "platform/Files.h"
#include "support/ManualClock.h"
#include "support/ScriptedUser.h"
#include "support/TemporaryFolder.h"
#include "ui/QtText.h"
#include "ui/messages/CSmsDialog.h"
#include "ui/messages/MessageEdit.h"
#include "ui/messages/NoteLine.h"
#include "ui/messages/WidgetSupport.h"

namespace tarnbridge::test {
namespace {

class DialogTest : public EmsTest {
protected:
    ~DialogTest() override { delete dialog; }

    void Open(std::unique_ptr<MessageDraft> draft = MessageDraft::New({})) {
        dialog = new CSmsDialog(std::move(draft), {user, clock, matcher});
        QObject::connect(dialog, &CSmsDialog::sendWanted,
                         [this](const SmsRecord& record) { sent.push_back(record); });
        QObject::connect(dialog, &CSmsDialog::saveWanted,
                         [this](const SmsRecord& record) { saved.push_back(record); });
        dialog->show();
    }

    template <typename Type>
    Type& Find(const char* name) {
        auto* const found = dialog->findChild<Type*>(QLatin1String(name));
        if (!found) {
            ADD_FAILURE() << name;
            std::abort();
        }
        return *found;
    }
    void Trigger(const char* name) { Find<QAction>(name).trigger(); }
    QString Note() { return Find<NoteLine>("note").Words(); }
    void Write(const QString& text) { QTest::keyClicks(&dialog->Text(), text); }
    std::string Seen() { return tarnbridge::Seen(dialog->Text().Editor().Shown()); }

    ScriptedUser user;
    ManualClock clock;
    VerbatimMatcher matcher;
    std::vector<SmsRecord> sent;
    std::vector<SmsRecord> saved;
    QPointer<CSmsDialog> dialog;
};

TEST_F(DialogTest, SendsWhatWasWrittenAndClosesWhenItIsTakenOver) {
    Open();
    QTest::keyClicks(&Find<QLineEdit>("recipients"), "+4670123; 112");
    Write("Hello");
    EXPECT_EQ(Find<QLabel>("counter").text(), "5 / 155 (Total = 1 SMS)");
    EXPECT_EQ(dialog->windowTitle(), "Message to +4670123; 112[*]");
    EXPECT_TRUE(dialog->isWindowModified());
    ASSERT_TRUE(QTest::qWaitForWindowActive(dialog));
    QTest::keyClick(&dialog->Text(), Qt::Key_Return, Qt::ControlModifier);
    ASSERT_EQ(sent.size(), 1u);
    EXPECT_EQ(sent[0].address.number, "+4670123;112");
    EXPECT_EQ(sent[0].status, smsComposed);
    EXPECT_EQ(sent[0].text8, "Hello");
    EXPECT_EQ(sent[0].rawParts, std::vector<std::string>{"Hello"});
    EXPECT_FALSE(sent[0].emsMessage) << "a slot that nobody gives back";
    EXPECT_TRUE(dialog);
    dialog->NoteSent();
    EXPECT_TRUE(Await([this] { return !dialog; }));
}

TEST_F(DialogTest, FaultyRecipientsAreToldInTheWindowAndNothingIsSent) {
    Open();
    Write("x");
    const std::pair<QString, Word> rows[] = {{"", Word::NoRecipient},
                                             {"07+0", Word::InvalidPhoneNumber},
                                             {"112,,113", Word::InvalidPhoneNumber},
                                             {QString(257, u'1'), Word::TooManyRecipientCharacters}};
    for (const auto& [text, words] : rows) {
        Find<QLineEdit>("recipients").setText(text);
        EXPECT_EQ(Note(), "");
        Trigger("send");
        EXPECT_EQ(Note(), QWords(words));
        EXPECT_EQ(dialog->focusWidget(), &Find<QLineEdit>("recipients"));
        Trigger("save");
        EXPECT_EQ(Note(), text.isEmpty() ? QString() : QWords(words)) << "a draft needs no recipient";
    }
    EXPECT_TRUE(sent.empty());
    EXPECT_EQ(saved.size(), 1u);
    EXPECT_TRUE(user.heard.empty());
    dialog->AddRecipient(QString(4000, u'2'));
    EXPECT_EQ(Note(), QWords(Word::RecipientsTextTooLong));
    Trigger("addFromPhonebook");
    EXPECT_EQ(Note(), QWords(Word::NoContactsYet));
}

TEST_F(DialogTest, ClosingAsksForWhatIsNotSavedAndNeverLosesIt) {
    Open();
    dialog->close();
    EXPECT_TRUE(Await([this] { return !dialog; })) << "nothing to lose";

    Open();
    Write("x");
    user.answers = {Answer::Cancel};
    dialog->close();
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(user.heard, std::vector<std::u16string>{Words(Word::SaveMessage)});
    Find<QLineEdit>("recipients").setText("0+");
    user.answers = {Answer::Yes};
    dialog->close();
    EXPECT_TRUE(dialog->IsClosing());
    EXPECT_TRUE(Await([this] { return !dialog->IsClosing(); }));
    EXPECT_EQ(Note(), QWords(Word::InvalidPhoneNumber));
    EXPECT_TRUE(dialog->isVisible()) << "it can't be saved like this";

    Find<QLineEdit>("recipients").setText("112");
    Trigger("save");
    ASSERT_EQ(saved.size(), 1u);
    EXPECT_TRUE(dialog->isWindowModified()) << "not until the owner has kept it";
    dialog->NoteSaved();
    EXPECT_FALSE(dialog->isWindowModified());
    EXPECT_TRUE(dialog->isVisible()) << "saved along the way";

    Write("y");
    user.answers = {Answer::Yes};
    dialog->close();
    dialog->close();
    EXPECT_TRUE(Await([this] { return saved.size() == 2; }));
    EXPECT_TRUE(dialog->isVisible()) << "the owner still has to choose a folder";
    dialog->NoteSaved();
    EXPECT_TRUE(Await([this] { return !dialog; }));

    Open();
    Write("z");
    user.answers = {Answer::No};
    dialog->close();
    EXPECT_TRUE(Await([this] { return !dialog; }));
    EXPECT_EQ(saved.size(), 2u);
}

TEST_F(DialogTest, CommandsShowAndSetTheLook) {
    Open();
    Write("plain ");
    Trigger("bold");
    Find<QMenu>("foreground").actions().at(10)->trigger();
    Trigger("sizeLarge");
    Write("loud");
    EXPECT_EQ(Seen(), "[]plain [bLf10]loud");
    EXPECT_TRUE(Find<QAction>("bold").isChecked());
    dialog->Text().moveCursor(QTextCursor::Start);
    EXPECT_FALSE(Find<QAction>("bold").isChecked());
    EXPECT_TRUE(Find<QAction>("sizeNormal").isChecked());
    EXPECT_TRUE(Find<QMenu>("foreground").actions().at(0)->isChecked());
    Trigger("alignCentre");
    EXPECT_EQ(Seen(), "[1]plain [bL1f10]loud");
    Trigger("alignCentre");
    EXPECT_EQ(Seen(), "[]plain [bLf10]loud") << "taken back by the same command";
    EXPECT_FALSE(Find<QAction>("alignCentre").isChecked());
    dialog->Text().selectAll();
    EXPECT_FALSE(Find<QAction>("sizeLarge").isChecked() || Find<QAction>("sizeNormal").isChecked());
    Trigger("sizeNormal");
    EXPECT_EQ(Seen(), "[]plain [bf10]loud");
    EXPECT_EQ(Find<QLabel>("counter").text().right(4), "EMS)");
}

TEST_F(DialogTest, ObjectsComeFromMenusAndFiles) {
    const TemporaryFolder folder;
    // A wireless bitmap of 8 x 1 pixels.
    ASSERT_TRUE(WriteFileAtomically(folder / "a.wbmp", std::string("\0\0\x08\x01\x0F", 5)));
    ASSERT_TRUE(WriteFileAtomically(folder / "b.wbmp", "no picture"));
    ASSERT_TRUE(WriteFileAtomically(folder / "c.imy", "BEGIN:IMELODY\r\nMELODY:c2\r\nEND:IMELODY\r\n"));
    Open();
    Trigger("insertSound4");
    Trigger("insertAnimation14");
    user.files = {{folder / "a.wbmp"}, {folder / "b.wbmp"}, {}, {folder / "c.imy"}, {folder / "a.wbmp"}};
    Trigger("insertPicture");
    EXPECT_EQ(Note(), "");
    Trigger("insertPicture");
    EXPECT_EQ(Note(), QWords(Word::InvalidImage));
    Trigger("insertPicture");
    Trigger("insertMelody");
    EXPECT_EQ(Note(), "");
    Trigger("insertMelody");
    EXPECT_EQ(Note(), QWords(Word::FileNotIMelody));
    const auto& objects = dialog->Text().Editor().Shown().Objects();
    ASSERT_EQ(objects.size(), 4u);
    EXPECT_EQ(objects[2].object.bytes, "\xF0") << "black where the file has it";
    EXPECT_EQ(objects[3].object.kind, EmsKind::Melody);
}

/// A GIF of two colours with a black line in each frame, in codes that need no dictionary.
std::string Gif(int side, const std::vector<int>& blackRows) {
    const auto byte = [](int value) { return static_cast<char>(value); };
    std::string file = "GIF89a";
    file += {byte(side), 0, byte(side), 0, byte(0x80), 0, 0, 0, 0, 0, byte(0xFF), byte(0xFF), byte(0xFF)};
    for (const int blackRow : blackRows) {
        std::string codes;
        int count = 0;
        const auto put = [&](int code) {
            for (int bit = 0; bit < 3; ++bit, ++count) {
                if (count % 8 == 0) codes += '\0';
                codes.back() = byte(codes.back() | (code >> bit & 1) << count % 8);
            }
        };
        for (int pixel = 0; pixel < side * side; ++pixel) {
            if (pixel % 2 == 0) put(4);
            put(pixel / side == blackRow ? 0 : 1);
        }
        put(5);
        file += {',', 0, 0, 0, 0, byte(side), 0, byte(side), 0, 0, 2, byte(static_cast<int>(codes.size()))};
        file += codes + '\0';
    }
    return file + ';';
}

TEST_F(DialogTest, AnAnimationComesFromAFile) {
    const TemporaryFolder folder;
    ASSERT_TRUE(WriteFileAtomically(folder / "two.gif", Gif(8, {0, 7})));
    ASSERT_TRUE(WriteFileAtomically(folder / "large.gif", Gif(16, {0, 1, 2, 3})));
    ASSERT_TRUE(WriteFileAtomically(folder / "long.gif", Gif(8, {0, 1, 2, 3, 4})));
    ASSERT_TRUE(WriteFileAtomically(folder / "odd.gif", Gif(12, {0})));
    ASSERT_TRUE(WriteFileAtomically(folder / "cut.gif", Gif(8, {0}).substr(0, 25)));
    ASSERT_TRUE(WriteFileAtomically(folder / "other.gif", "no picture"));
    Open();
    const auto insert = [&](const char* name) {
        user.files = {{folder / name}};
        Trigger("insertAnimationFile");
        return Note();
    };
    EXPECT_EQ(insert("two.gif"), "");
    EXPECT_EQ(insert("large.gif"), "");
    for (const char* const name : {"long.gif", "odd.gif"})
        EXPECT_EQ(insert(name), QWords(Word::AnimationUnfit)) << name;
    for (const char* const name : {"cut.gif", "other.gif", "nowhere.gif"})
        EXPECT_EQ(insert(name), QWords(Word::InvalidImage)) << name;
    const auto& objects = dialog->Text().Editor().Shown().Objects();
    ASSERT_EQ(objects.size(), 2u);
    const std::string first = "\xFF" + std::string(7, '\0');
    const std::string last = std::string(7, '\0') + "\xFF";
    EXPECT_EQ(objects[0].object.bytes, first + first + last + last) << "two frames take the time of four";
    EXPECT_EQ(objects[1].object.bytes.size(), 128u);
    EXPECT_EQ(objects[1].object.bytes.substr(0, 3), std::string("\xFF\xFF\0", 3));
    EXPECT_EQ(objects[1].object.bytes.substr(32, 4), std::string("\0\0\xFF\xFF", 4));
    EXPECT_EQ(dialog->Text().Editor().Message().segmentsUsed, 2);
}

}  // namespace
}  // namespace tarnbridge::test
