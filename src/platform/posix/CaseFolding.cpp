#include <algorithm>

#include <locale.h>
#include <wctype.h>

#include "platform/Text.h"

namespace tarnbridge {

std::u16string FoldCase(std::u16string_view text) {
    // Of the letters' classes alone, whatever the user's language. Where the system lacks it, ASCII folds.
    static const locale_t letters = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    std::u16string folded(text);
    std::transform(folded.begin(), folded.end(), folded.begin(), [](char16_t unit) {
        if (unit < 0x80 || letters == nullptr)
            return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit | 0x20) : unit;
        if (unit >= 0xD800 && unit <= 0xDFFF) return unit;
        const wint_t small = towlower_l(unit, letters);
        return small < 0x10000 ? static_cast<char16_t>(small) : unit;
    });
    return folded;
}

}  // namespace tarnbridge
