#include "ui/messages/WidgetSupport.h"

#include <QBrush>
#include <QTextBlock>
#include <QTextDocument>

#include <fmt/format.h>

namespace tarnbridge::test {
namespace {

std::string Look(const QTextCharFormat& look) {
    const auto colour = [&](QTextFormat::Property property) {
        return look.hasProperty(property) ? look.brushProperty(property).color().name().toStdString() : "-";
    };
    return fmt::format("{}{}{}{} size {} object {} {} on {}", look.font().bold() ? "b" : "",
                       look.fontItalic() ? "i" : "", look.fontUnderline() ? "u" : "",
                       look.fontStrikeOut() ? "s" : "", look.intProperty(QTextFormat::FontSizeAdjustment),
                       look.objectType(), colour(QTextFormat::ForegroundBrush),
                       colour(QTextFormat::BackgroundBrush));
}

}  // namespace

MessageObject DotPicture() {
    std::string pixels(32, '\0');
    pixels[0] = '\x80';
    return MessageObject::Picture(pixels, 16, 16);
}

std::string Describe(const QTextDocument& document) {
    std::string lines;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        lines += fmt::format("line {}\n", block.blockFormat().intProperty(QTextFormat::BlockAlignment));
        std::string look;
        QString text;
        const auto flush = [&] {
            if (!text.isEmpty()) lines += fmt::format("  '{}' {}\n", text.toStdString(), look);
            text.clear();
        };
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            const std::string next = Look(part.fragment().charFormat());
            if (next != look) flush();
            look = next;
            text += part.fragment().text();
        }
        flush();
    }
    return lines;
}

}  // namespace tarnbridge::test
