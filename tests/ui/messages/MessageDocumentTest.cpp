#include <QAbstractTextDocumentLayout>
#include <QPainter>
#include <QSignalSpy>
#include <cmath>
#include <random>

#include <fmt/format.h>

#include "ui/QtText.h"
#include "ui/messages/MessageDocument.h"
#include "ui/messages/MessageLook.h"
#include "ui/messages/ObjectLook.h"
#include "ui/messages/WidgetSupport.h"

namespace tarnbridge::test {
namespace {

class DocumentTest : public EmsTest {};

/// The text with a line feed for each line end.
std::string TextOf(const QTextDocument& document) {
    return document.toRawText().replace(QChar::ParagraphSeparator, u'\n').toStdString();
}

QImage Painted(QTextDocument& document) {
    document.setTextWidth(300);
    QImage image(300, 1 + static_cast<int>(document.size().height()), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    document.drawContents(&painter);
    return image;
}

TEST_F(DocumentTest, AChangeLeavesWhatWritingAllAnewWould) {
    for (unsigned seed = 0; seed < 8; ++seed) {
        std::mt19937 random(seed);
        const auto pick = [&](int below) {
            return static_cast<int>(random() % static_cast<unsigned>(below));
        };
        MessageEditor editor = MakeEditor();
        MessageDocument document(nullptr);
        for (int step = 0; step < 120; ++step) {
            const int length = editor.Shown().Length();
            const int from = pick(length + 1);
            const int to = std::min(length, from + pick(6));
            static constexpr const char16_t* texts[] = {u"a",          u"ab\n",       u"\n",
                                                        u"\U0001F600", u"\U0001F601", u"aaa"};
            switch (pick(6)) {
                case 0:
                    editor.Delete(from, to);
                    break;
                case 1:
                    editor.ApplyFormat(from, to, {.alignment = static_cast<uint8_t>(pick(4))});
                    break;
                case 2:
                    editor.ApplyFormat(from, to,
                                       {.bold = static_cast<uint8_t>(pick(2)),
                                        .foreground = static_cast<uint8_t>(pick(16))});
                    break;
                case 3:
                    editor.Replace(from, to,
                                   {pick(2) ? MessageObject::PredefinedSound(pick(3)) : DotPicture()});
                    break;
                default:
                    editor.Replace(from, to, texts[pick(6)]);
            }
            const EmsTextFormat atEnd = editor.TypingFormat(editor.Shown().Length());
            document.Show(editor.Shown(), atEnd);
            MessageDocument whole(nullptr);
            whole.Show(editor.Shown(), atEnd);
            ASSERT_EQ(Describe(document), Describe(whole)) << "seed " << seed << ", step " << step;
            ASSERT_EQ(TextOf(document), ToQString(editor.Shown().Text()).toStdString());
        }
    }
}

TEST_F(DocumentTest, WhatHasNotChangedIsNotTouched) {
    MessageEditor editor = MakeEditor();
    Type(editor, u"one\ntwo\nthree");
    MessageDocument document(nullptr);
    document.Show(editor.Shown());
    QSignalSpy changes(&document, &QTextDocument::contentsChange);
    editor.Replace(5, 5, u"x");
    document.Show(editor.Shown());
    ASSERT_EQ(changes.size(), 1);
    EXPECT_EQ(changes[0], (QVariantList{5, 0, 1}));
    document.Show(editor.Shown());
    EXPECT_EQ(changes.size(), 1);
}

TEST_F(DocumentTest, AnyBytesFromTheAirCanBeShownAndPainted) {
    for (unsigned seed = 0; seed < 300; ++seed) {
        std::mt19937 random(seed);
        std::vector<std::string> segments;
        for (unsigned i = 0; i <= random() % 4; ++i) {
            std::string segment = RandomBytes(random, 40 + random() % 100);
            segment[0] = static_cast<char>(random() % 60);
            // A picture that says it is there, so that not all is noise.
            if (random() % 2)
                segment.replace(0, 5, std::string{'\x24', '\x11', '\x22', '\x02', '\0'}.substr(0, 4));
            segments.push_back(segment);
        }
        EmsTestMessage message;
        Read(message, true, segments, random() % 2 ? 8 : 0);
        MessageDocument document(nullptr);
        const ShownMessage shown(message);
        document.Show(shown);
        ASSERT_EQ(TextOf(document), ToQString(shown.Text()).toStdString()) << seed;
        Painted(document);
        for (const ShownObject& object : shown.Objects()) {
            ASSERT_FALSE(NameOfObject(object.object).isEmpty());
            ASSERT_FALSE(document.ObjectRect(object.position).isEmpty());
        }
    }
}

TEST_F(DocumentTest, PixelsHaveTheColoursOfTheirDepth) {
    const auto colours = [](const MessageObject& object, int frame = 0) {
        std::string names;
        const QImage image = FrameOf(object, frame);
        for (int x = 0; x < image.width(); ++x)
            names += image.pixelColor(x, 0).name().toStdString() + " ";
        return names;
    };
    EXPECT_EQ(colours(MessageObject::Picture("\xA0", 4, 1)), "#000000 #ffffff #000000 #ffffff ");
    EXPECT_EQ(colours(MessageObject::Picture("\x1B", 4, 1, 2)), "#000000 #555555 #aaaaaa #ffffff ");
    // Red 3, green 2 and blue 1 in the first pixel, blue 3 in the second, of 6 bits each.
    EXPECT_EQ(colours(MessageObject::Picture("\xE4\x30", 2, 1, 6)), "#ffaa55 #0000ff ");
    // Each frame begins with a byte of its own.
    const MessageObject film = MessageObject::Animation("\x80\x40", 2, 1, 2);
    EXPECT_EQ(FrameCount(film), 2);
    EXPECT_EQ(colours(film, 0), "#000000 #ffffff ");
    EXPECT_EQ(colours(film, 1), "#ffffff #000000 ");
    EXPECT_EQ(colours(film, 2), "");
    for (const MessageObject& bad :
         {MessageObject::Picture("\x01", 3, 3), MessageObject::Picture("", 0, 4),
          MessageObject::Picture(std::string(64, 'x'), 8, 8, 3), MessageObject::Animation("\x80", 2, 1, 2),
          MessageObject::Melody("BEGIN:IMELODY")})
        EXPECT_EQ(FrameCount(bad), 0);
}

TEST_F(DocumentTest, ObjectsHaveNames) {
    const auto card = [](EmsKind kind, const char* content) {
        return NameOfObject({.kind = kind, .bytes = content}).toStdString();
    };
    EXPECT_EQ(DescriptionOfObject(MessageObject::PredefinedAnimation(200)), "Animation 200");
    EXPECT_EQ(card(EmsKind::VCard, "BEGIN:VCARD\r\nN:Holm;Eva\r\nEND:VCARD"), "Contact card: Holm Eva");
    EXPECT_EQ(card(EmsKind::VCard, "BEGIN:VCARD\r\nN:Holm\r\nFN;ENCODING=QUOTED-PRINTABLE:J=C3=A4rvi\r\n"),
              "Contact card: Järvi");
    EXPECT_EQ(card(EmsKind::VCalendar, "BEGIN:VCALENDAR\nSUMMARY:Tea\x01\xFF\n"),
              "Calendar entry: Tea\uFFFD");
    EXPECT_EQ(card(EmsKind::VCard, "N"), "Contact card");
    EXPECT_EQ(card(EmsKind::VCard, "FN:"), "Contact card");
}

TEST_F(DocumentTest, APictureIsDrawnInWholePixels) {
    MessageEditor editor = MakeEditor();
    editor.Insert(0, DotPicture());
    MessageDocument document(nullptr);
    document.Show(editor.Shown());
    const QImage image = Painted(document);
    int black = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            black += image.pixel(x, y) == qRgb(0, 0, 0) ? 1 : 0;
    }
    EXPECT_EQ(black, 3 * 3) << "one pixel, enlarged three times, without grey edges";
    const QRectF place = document.ObjectRect(0);
    EXPECT_EQ(document.ObjectAt(place.center()), 0);
    EXPECT_EQ(document.ObjectAt(place.bottomRight() + QPointF(5, 5)), -1);
}

/// What is grey on the screen is grey on paper: how dark the picture is.
double DarknessAt(QTextDocument& document, int scale) {
    document.setTextWidth(300);
    QImage image(300 * scale, 60 * scale, QImage::Format_RGB32);
    image.setDotsPerMeterX(image.dotsPerMeterX() * scale);
    image.setDotsPerMeterY(image.dotsPerMeterY() * scale);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.scale(scale, scale);
    document.drawContents(&painter);
    double darkness = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            darkness += 255 - qGray(image.pixel(x, y));
    }
    return darkness / (scale * scale);
}

TEST_F(DocumentTest, ANameIsAsLargeOnPaperAsOnTheScreen) {
    MessageEditor editor = MakeEditor();
    editor.Insert(0, MessageObject::PredefinedSound(4));
    MessageDocument document(nullptr);
    document.Show(editor.Shown());
    const double onScreen = DarknessAt(document, 1);
    ASSERT_GT(onScreen, 0);
    EXPECT_NEAR(DarknessAt(document, 8) / onScreen, 1, 0.2);
}

TEST_F(DocumentTest, AnimationsRunOnlyWhileTheyAreShown) {
    MessageEditor editor = MakeEditor();
    editor.Insert(0, MessageObject::Animation(std::string(32, '\x0F'), 8, 8, 4));
    MessageDocument document(nullptr);
    document.Show(editor.Shown());
    QSignalSpy updates(document.documentLayout(), &QAbstractTextDocumentLayout::update);
    document.SetAnimated(true);
    EXPECT_TRUE(Await([&] { return updates.size() >= 2; }));
    document.SetAnimated(false);
    const auto before = updates.size();
    QDeadlineTimer pause(600);
    Await([&] { return pause.hasExpired(); });
    EXPECT_EQ(updates.size(), before);
}

double Contrast(const QColor& first, const QColor& second) {
    const auto luminance = [](const QColor& colour) {
        const auto linear = [](double value) {
            return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
               0.0722 * linear(colour.blueF());
    };
    const double one = luminance(first), other = luminance(second);
    return (std::max(one, other) + 0.05) / (std::min(one, other) + 0.05);
}

TEST_F(DocumentTest, EveryColourCanBeReadOnLightAndDarkGround) {
    for (const QColor& ground : {QColor(Qt::white), QColor(32, 34, 37), QColor(Qt::black)}) {
        QPalette palette;
        palette.setColor(QPalette::Base, ground);
        EXPECT_FALSE(CharacterFormat({}, palette).hasProperty(QTextFormat::ForegroundBrush));
        EXPECT_FALSE(CharacterFormat({}, palette).hasProperty(QTextFormat::BackgroundBrush));
        for (uint8_t colour = 1; colour < messageColours; ++colour) {
            const QTextCharFormat ink = CharacterFormat({.foreground = colour}, palette);
            EXPECT_GE(Contrast(ink.foreground().color(), ground), 2.9) << int{colour};
            if (colour == 9) continue;
            const QTextCharFormat marked = CharacterFormat({.background = colour}, palette);
            EXPECT_EQ(marked.background().color(), MessageColour(colour));
            EXPECT_GE(Contrast(marked.foreground().color(), MessageColour(colour)), 4.5) << int{colour};
        }
        const QTextCharFormat both = CharacterFormat({.background = 11, .foreground = 14}, palette);
        EXPECT_EQ(both.foreground().color(), QColor(0, 0, 255)) << "chosen together, they stay as they are";
    }
}

}  // namespace
}  // namespace tarnbridge::test
