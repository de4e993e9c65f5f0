#include "phonebook/Contact.h"

#include "link/WireText.h"

namespace tarnbridge {

void Contact::SetNameNumber(std::u16string_view newName, std::u16string_view numberText, uint8_t encoding,
                            const CodePage& page) {
    name.clear();
    for (const char16_t unit : newName) {
        if (unit == u'\n' && name.ends_with(u'\r'))
            name.pop_back();
        else
            name.push_back(unit);
    }
    number = SmsAddress(WideToNarrow(numberText, false, page), SmsAddress::unknown);
    nameEncoding = encoding;
}

void Contact::GetNameNumber(std::u16string& nameOut, std::u16string& numberText, const CodePage& page) const {
    nameOut = name;
    numberText = page.ToText(number.number);
}

}  // namespace tarnbridge
