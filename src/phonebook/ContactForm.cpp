#include "phonebook/ContactForm.h"

#include "phonebook/Contact.h"
#include "platform/Text.h"

namespace tarnbridge {
namespace {

constexpr int longestPcName = 60;

struct Words {
    std::string_view key;
    std::u16string_view english;
};

constexpr std::u16string_view plainLimit =
    u"The maximum of contact name is %d English characters,\nor %d Chinese characters!\n\n"
    u"Each of the following will be considered as 2 characters: \n\\\\ | [ ] { } ^ ~";
constexpr std::u16string_view packedLimit =
    u"The maximum of contact name is %d English characters,\n%d characters (if contains only Thai, Russian, "
    u"Latin\nor Arabic), or %d Chinese characters!";

constexpr Words allWords[] = {
    {"contact.nameCharacters", u"The name shouldn't contain any char of '\\\\' or '/'."},
    {"contact.nameLengthPc", u"The maximum of contact name is %d characters!"},
    {"contact.nameLengthSim", plainLimit},
    {"contact.nameLengthPhone", plainLimit},
    {"contact.packedNameLengthSim", packedLimit},
    {"contact.packedNameLengthPhone", packedLimit},
    {"contact.numberFormat", u"Invalid %s number format!"},
    {"contact.numberLength", u"The maximum of contact number is 40 characters!"},
    {"contact.empty", u"Please enter the contact's name or phone number!"},
    {"contact.email", u"Email format is invalid, or it's too long! The maximum length is 60."},
    // The field is the birthday; the sentence speaks of the anniversary all the same.
    {"contact.anniversary",
     u"The input of anniversary is not valid.\n\nThe correct format is 25/01/2004,\n"
     u"and the year must be between 1900-2030."},
    {"contact.labelMobile", u"Mobile"},
    {"contact.labelHome", u"Home"},
    {"contact.labelOffice", u"Office"},
    {"contact.labelFax", u"Fax"},
};

std::optional<ContactProblem> CheckNumber(std::u16string_view number, ContactField field,
                                          std::string_view label) {
    if (!IsNumberCharsOk(number)) return ContactProblem{field, "contact.numberFormat", label, {}};
    if (!IsNumberLengthOk(number)) return ContactProblem{field, "contact.numberLength", {}, {}};
    return std::nullopt;
}

std::optional<ContactProblem> CheckName(const ContactForm& form, const HandsetNameLimits& limits) {
    if (!IsNameCharsOk(form.name))
        return ContactProblem{ContactField::name, "contact.nameCharacters", {}, {}};
    if (form.storage == pcStorage) {
        if (form.name.size() <= longestPcName) return std::nullopt;
        return ContactProblem{ContactField::name, "contact.nameLengthPc", {}, {longestPcName}};
    }
    const bool isSim = form.storage == simStorage;
    std::u16string name = form.name;
    uint8_t encoding = plainName;
    int longest = 0;
    if (FitNameToHandset(name, isSim, encoding, true, longest, limits)) return std::nullopt;
    const int longestWide = (longest - 1) / 2;
    if (encoding == packedUcs2Name)
        return ContactProblem{ContactField::name,
                              isSim ? "contact.packedNameLengthSim" : "contact.packedNameLengthPhone",
                              {},
                              {longest, longest - 3, longestWide}};
    return ContactProblem{ContactField::name,
                          isSim ? "contact.nameLengthSim" : "contact.nameLengthPhone",
                          {},
                          {longest, longestWide}};
}

}  // namespace

std::u16string ContactProblem::Sentence(
    const std::function<std::u16string(std::string_view key)>& table) const {
    const std::u16string format = table(words);
    std::u16string sentence;
    size_t nextNumber = 0;
    for (size_t i = 0; i < format.size(); ++i) {
        const char16_t kind = format[i] == u'%' && i + 1 < format.size() ? format[i + 1] : u'\0';
        if (kind == u'd' && nextNumber < numbers.size()) {
            sentence += WidenBytes(std::to_string(numbers[nextNumber++]));
            ++i;
        } else if (kind == u's') {
            for (const char16_t unit : table(label))
                sentence.push_back(unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + 32) : unit);
            ++i;
        } else {
            sentence.push_back(format[i]);
        }
    }
    return sentence;
}

std::optional<ContactProblem> CheckContactForm(const ContactForm& form, const HandsetNameLimits& limits) {
    if (auto problem = CheckName(form, limits)) return problem;
    if (auto problem = CheckNumber(form.mobile, ContactField::mobile, "contact.labelMobile")) return problem;
    if (form.name.empty() && form.mobile.empty())
        return ContactProblem{ContactField::name, "contact.empty", {}, {}};
    if (form.storage == simStorage) return std::nullopt;
    if (auto problem = CheckNumber(form.home, ContactField::home, "contact.labelHome")) return problem;
    if (auto problem = CheckNumber(form.office, ContactField::office, "contact.labelOffice")) return problem;
    if (auto problem = CheckNumber(form.fax, ContactField::fax, "contact.labelFax")) return problem;
    if (!IsEmailOk(form.email)) return ContactProblem{ContactField::email, "contact.email", {}, {}};
    ContactDate birthday;
    if (!ParseDate(form.birthday, birthday))
        return ContactProblem{ContactField::birthday, "contact.anniversary", {}, {}};
    return std::nullopt;
}

std::u16string_view EnglishContactWords(std::string_view key) {
    for (const Words& words : allWords) {
        if (words.key == key) return words.english;
    }
    return {};
}

}  // namespace tarnbridge
