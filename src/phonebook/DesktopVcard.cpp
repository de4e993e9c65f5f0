#include "phonebook/DesktopVcard.h"

#include <algorithm>
#include <string>
#include <utility>

#include "phonebook/ContactChecks.h"
#include "platform/Text.h"

namespace tarnbridge {
namespace {

constexpr size_t longestMobile = 40;

std::u16string_view Trimmed(std::u16string_view text) {
    constexpr std::u16string_view blanks = u" \t\n\v\f\r";
    const size_t first = text.find_first_not_of(blanks);
    if (first == std::u16string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

bool IsAscii(std::u16string_view text) {
    return std::all_of(text.begin(), text.end(), [](char16_t unit) { return unit < 0x80; });
}

/// The digits at the start of a text.
int LeadingNumber(std::u16string_view text) {
    int value = 0;
    for (const char16_t unit : text) {
        if (unit < u'0' || unit > u'9') break;
        value = value * 10 + (unit - u'0');
    }
    return value;
}

/// Given name first in ASCII, family name first in other writings.
std::u16string FullName(const std::u16string& given, const std::u16string& family,
                        const std::u16string& withoutFamily) {
    if (IsAscii(given) && IsAscii(family)) return given + u' ' + family;
    return family.empty() ? withoutFamily : family + u' ' + given;
}

/// What was read of the card at hand.
struct Card {
    std::u16string n;
    std::u16string ln;
    std::u16string fn;
    std::u16string mobile;
    ContactDetails details;

    void Take(std::string_view key, std::u16string_view value);
    std::u16string Name() const;
    std::unique_ptr<Contact> Finish(const CodePage& page) const;
};

void Card::Take(std::string_view key, std::u16string_view value) {
    const auto is = [key](std::string_view name) { return EqualIgnoringCase(key, name); };
    const auto takeNumber = [value](std::u16string& number) {
        if (!value.empty()) number = CleanNumber(value);
    };
    if (is("N"))
        n = value;
    else if (is("LN"))
        ln = value;
    else if (is("FN"))
        fn = value;
    else if (is("TEL;CELL;VOICE"))
        takeNumber(mobile);
    else if (is("TEL;WORK;VOICE"))
        takeNumber(details.office);
    else if (is("TEL;HOME;VOICE"))
        takeNumber(details.home);
    else if (is("TEL;WORK;FAX"))
        takeNumber(details.fax);
    else if (is("EMAIL;PREF;INTERNET"))
        details.email = value;
    else if (is("ANN") && value.size() == 8)
        details.birthday = {static_cast<uint16_t>(LeadingNumber(value.substr(0, 4))),
                            static_cast<uint8_t>(LeadingNumber(value.substr(4, 2))),
                            static_cast<uint8_t>(LeadingNumber(value.substr(6, 2)))};
    else if (is("MEMO"))
        details.memo = value;
}

std::u16string Card::Name() const {
    if (!n.empty()) return FullName(n, ln, n);
    // A full name in another writing counts only beside a family name.
    if (!fn.empty()) return FullName(fn, ln, {});
    return ln;
}

std::unique_ptr<Contact> Card::Finish(const CodePage& page) const {
    const std::u16string name = Name();
    std::u16string number = !mobile.empty() ? mobile : !details.home.empty() ? details.home : details.office;
    if (name.empty() && number.empty()) return nullptr;
    if (number.size() > longestMobile) number.resize(longestMobile);
    auto contact = std::make_unique<Contact>();
    contact->SetNameNumber(name, number, ucs2Name, page);
    contact->details = details;
    return contact;
}

}  // namespace

std::vector<std::unique_ptr<Contact>> ImportDesktopVcards(std::u16string_view text, const CodePage& page) {
    std::vector<std::unique_ptr<Contact>> contacts;
    Card card;
    for (size_t end = text.find(u'\n'); end != std::u16string_view::npos && end != 0;
         end = text.find(u'\n')) {
        const std::u16string_view line = Trimmed(text.substr(0, end));
        text.remove_prefix(end + 1);
        const size_t colon = line.find(u':');
        if (colon == std::u16string_view::npos) continue;
        // Keys are ASCII, so a unit that can't be one is left to differ as a NUL.
        std::string key;
        for (const char16_t unit : line.substr(0, colon))
            key.push_back(unit < 0x80 ? static_cast<char>(unit) : '\0');
        const std::u16string_view value = Trimmed(line.substr(colon + 1));
        if (EqualIgnoringCase(key, "BEGIN")) {
            if (value != u"VCARD") break;
        } else if (EqualIgnoringCase(key, "END")) {
            if (auto contact = card.Finish(page)) contacts.push_back(std::move(contact));
            card = {};
        } else {
            card.Take(key, value);
        }
    }
    return contacts;
}

}  // namespace tarnbridge
