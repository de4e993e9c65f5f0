#include "simulator/GsmAlphabet.h"

#include <algorithm>
#include <array>

namespace tarnbridge::simulator {
namespace {

constexpr char escape = 0x1b;

constexpr std::u16string_view alphabet =
    u"@£$¥èéùìòÇ\nØø\rÅå"
    u"Δ_ΦΓΛΩΠΨΣΘΞ\u001bÆæßÉ"
    u" !\"#¤%&'()*+,-./0123456789:;<=>?"
    u"¡ABCDEFGHIJKLMNOPQRSTUVWXYZÄÖÑÜ§"
    u"¿abcdefghijklmnopqrstuvwxyzäöñüà";
static_assert(alphabet.size() == 128);

struct Extension {
    char septet;
    char16_t unit;
};

constexpr std::array<Extension, 10> extensions{{{0x0a, u'\f'},
                                                {0x14, u'^'},
                                                {0x28, u'{'},
                                                {0x29, u'}'},
                                                {0x2f, u'\\'},
                                                {0x3c, u'['},
                                                {0x3d, u'~'},
                                                {0x3e, u']'},
                                                {0x40, u'|'},
                                                {0x65, u'€'}}};

}  // namespace

std::optional<std::string> TextToSeptets(std::u16string_view text) {
    std::string septets;
    for (const char16_t unit : text) {
        const auto extension = std::find_if(extensions.begin(), extensions.end(),
                                            [&](const Extension& entry) { return entry.unit == unit; });
        const size_t index = alphabet.find(unit);
        if (extension != extensions.end()) {
            septets += escape;
            septets += extension->septet;
        } else if (index != std::u16string_view::npos && unit != u'\u001b') {
            septets += static_cast<char>(index);
        } else {
            return std::nullopt;
        }
    }
    return septets;
}

std::u16string SeptetsToText(std::string_view septets) {
    std::u16string text;
    for (size_t i = 0; i < septets.size(); ++i) {
        const auto septet = static_cast<unsigned char>(septets[i]);
        if (septet == escape && i + 1 < septets.size()) {
            ++i;
            const auto extension =
                std::find_if(extensions.begin(), extensions.end(),
                             [&](const Extension& entry) { return entry.septet == septets[i]; });
            text += extension == extensions.end() ? u' ' : extension->unit;
        } else {
            text += septet < alphabet.size() ? alphabet[septet] : u'\ufffd';
        }
    }
    return text;
}

}  // namespace tarnbridge::simulator
