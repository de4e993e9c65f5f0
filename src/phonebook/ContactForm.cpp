#include "phonebook/ContactForm.h"

#include "phonebook/Contact.h"
#include "platform/Text.h"

namespace tarnbridge {
namespace {

constexpr int longestPcName = 60;

std::optional<ContactProblem> CheckNumber(std::u16string_view number, ContactField field, Word label) {
    if (!IsNumberCharsOk(number)) return ContactProblem{field, Word::InvalidNumberFormat, label, {}};
    if (!IsNumberLengthOk(number)) return ContactProblem{field, Word::NumberTooLong, {}, {}};
    return std::nullopt;
}

std::optional<ContactProblem> CheckName(const ContactForm& form, const HandsetNameLimits& limits) {
    if (!IsNameCharsOk(form.name)) return ContactProblem{ContactField::name, Word::NameHasSlash, {}, {}};
    if (form.storage == pcStorage) {
        if (form.name.size() <= longestPcName) return std::nullopt;
        return ContactProblem{ContactField::name, Word::NameTooLong, {}, {longestPcName}};
    }
    const bool isSim = form.storage == simStorage;
    std::u16string name = form.name;
    uint8_t encoding = plainName;
    int longest = 0;
    if (FitNameToHandset(name, isSim, encoding, true, longest, limits)) return std::nullopt;
    const int longestWide = (longest - 1) / 2;
    if (encoding == packedUcs2Name)
        return ContactProblem{
            ContactField::name, Word::NameTooLongPacked, {}, {longest, longest - 3, longestWide}};
    return ContactProblem{ContactField::name, Word::NameTooLongForHandset, {}, {longest, longestWide}};
}

}  // namespace

std::u16string ContactProblem::Sentence() const {
    if (label) {
        std::u16string lowered = Words(*label);
        for (char16_t& unit : lowered) {
            if (unit >= u'A' && unit <= u'Z') unit = static_cast<char16_t>(unit + 32);
        }
        return Words(words, {lowered});
    }
    switch (numbers.size()) {
        case 0:
            return Words(words, {});
        case 1:
            return Words(words, {numbers[0]});
        case 2:
            return Words(words, {numbers[0], numbers[1]});
        default:
            return Words(words, {numbers[0], numbers[1], numbers[2]});
    }
}

std::optional<ContactProblem> CheckContactForm(const ContactForm& form, const HandsetNameLimits& limits) {
    if (auto problem = CheckName(form, limits)) return problem;
    if (auto problem = CheckNumber(form.mobile, ContactField::mobile, Word::LabelMobile)) return problem;
    if (form.name.empty() && form.mobile.empty())
        return ContactProblem{ContactField::name, Word::NameOrNumberMissing, {}, {}};
    if (form.storage == simStorage) return std::nullopt;
    if (auto problem = CheckNumber(form.home, ContactField::home, Word::LabelHome)) return problem;
    if (auto problem = CheckNumber(form.office, ContactField::office, Word::LabelOffice)) return problem;
    if (auto problem = CheckNumber(form.fax, ContactField::fax, Word::LabelFax)) return problem;
    if (!IsEmailOk(form.email)) return ContactProblem{ContactField::email, Word::InvalidEmail, {}, {}};
    ContactDate birthday;
    if (!ParseDate(form.birthday, birthday))
        return ContactProblem{ContactField::birthday, Word::InvalidAnniversary, {}, {}};
    return std::nullopt;
}

}  // namespace tarnbridge
