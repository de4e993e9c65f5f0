#include "ui/messages/MessageLook.h"

#include <QPalette>
#include <cmath>
#include <optional>

#include "messaging/ems/Ems.h"

namespace tarnbridge {
namespace {

constexpr uint8_t sizeLarge = 4;
constexpr uint8_t sizeSmall = 8;
// Steps of HTML's font sizes, which Qt takes relative to the document's font: 0.8 and 1.5 times that.
constexpr int smallStep = -1;
constexpr int largeStep = 2;

constexpr double leastContrast = 3.0;  // WCAG 2.1, 1.4.11
constexpr int lightnessStep = 4;

double Linear(int channel) {
    const double value = channel / 255.0;
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

double Luminance(const QColor& colour) {
    return 0.2126 * Linear(colour.red()) + 0.7152 * Linear(colour.green()) + 0.0722 * Linear(colour.blue());
}

/// WCAG 2.1, contrast ratio.
double Contrast(const QColor& first, const QColor& second) {
    const double one = Luminance(first);
    const double other = Luminance(second);
    return (std::max(one, other) + 0.05) / (std::min(one, other) + 0.05);
}

/// The nearest lightness of the same hue that can be read on the ground.
QColor ReadableOn(const QColor& ground, QColor colour) {
    const int step = Luminance(ground) > 0.18 ? -lightnessStep : lightnessStep;
    while (Contrast(colour, ground) < leastContrast) {
        const int lightness = colour.lightness() + step;
        if (lightness < 0 || lightness > 255) break;
        colour.setHsl(colour.hslHue(), colour.hslSaturation(), lightness);
    }
    return colour;
}

}  // namespace

QColor MessageColour(int index) {
    return QColor::fromRgb(EmsScreenColour(static_cast<uint8_t>(index)));
}

Word NameOfMessageColour(int index) {
    static constexpr Word names[messageColours] = {
        Word::ColourBlack,       Word::ColourDarkGrey, Word::ColourDarkRed,  Word::ColourOrange,
        Word::ColourGreen,       Word::ColourTeal,     Word::ColourDarkBlue, Word::ColourPurple,
        Word::ColourGrey,        Word::ColourWhite,    Word::ColourRed,      Word::ColourYellow,
        Word::ColourBrightGreen, Word::ColourCyan,     Word::ColourBlue,     Word::ColourMagenta};
    return index >= 0 && index < messageColours ? names[index] : Word::Count;
}

QTextCharFormat CharacterFormat(const EmsTextFormat& format, const QPalette& palette) {
    QTextCharFormat look;
    if (format.size == sizeSmall) look.setProperty(QTextFormat::FontSizeAdjustment, smallStep);
    if (format.size == sizeLarge) look.setProperty(QTextFormat::FontSizeAdjustment, largeStep);
    if (format.bold) look.setFontWeight(QFont::Bold);
    if (format.italic) look.setFontItalic(true);
    if (format.underline) look.setFontUnderline(true);
    if (format.strikethrough) look.setFontStrikeOut(true);

    constexpr EmsTextFormat plain;
    const bool hasInk = format.foreground != plain.foreground;
    const bool hasGround = format.background != plain.background;
    const QColor ground = hasGround ? MessageColour(format.background) : palette.color(QPalette::Base);
    if (hasGround) look.setBackground(ground);
    if (hasInk) {
        const QColor ink = MessageColour(format.foreground);
        look.setForeground(hasGround ? ink : ReadableOn(ground, ink));
    } else if (hasGround) {
        look.setForeground(Contrast(Qt::black, ground) > Contrast(Qt::white, ground) ? Qt::black : Qt::white);
    }
    return look;
}

Qt::Alignment LineAlignment(const EmsTextFormat& format) {
    switch (format.alignment) {
        case 0:
            return Qt::AlignLeft | Qt::AlignAbsolute;
        case 1:
            return Qt::AlignHCenter;
        case 2:
            return Qt::AlignRight | Qt::AlignAbsolute;
        default:
            return {};
    }
}

}  // namespace tarnbridge
