#include "tarnctl/ContactJson.h"

#include <algorithm>

#include <fmt/format.h>

#include "phonebook/ContactForm.h"
#include "phonebook/DesktopVcard.h"
#include "phonebook/HandsetVcard.h"
#include "platform/Text.h"
#include "tarnctl/JsonFields.h"

namespace tarnbridge {
namespace {

struct DetailField {
    const char* name;
    std::u16string ContactDetails::*text;
};

constexpr DetailField detailFields[] = {
    {"home", &ContactDetails::home},   {"office", &ContactDetails::office}, {"fax", &ContactDetails::fax},
    {"email", &ContactDetails::email}, {"memo", &ContactDetails::memo},
};

constexpr const char* fieldNames[] = {"name", "mobile", "home", "office", "fax", "email", "birthday"};

std::u16string TextIn(const Json& object, const char* name, const char* otherwise = "") {
    return Utf8ToText(object.value(name, otherwise));
}

/// As it is typed, or as ContactToJson has it.
std::u16string BirthdayIn(const Json& object) {
    if (!object.contains("birthday") || !object.at("birthday").is_object()) return TextIn(object, "birthday");
    const Json& date = object.at("birthday");
    return Utf8ToText(fmt::format("{}/{}/{}", NumberIn(date, "day", 0, 99), NumberIn(date, "month", 0, 99),
                                  NumberIn(date, "year", 0, 9999)));
}

}  // namespace

Json ContactToJson(const Contact& contact) {
    Json object = {{"storage", TextToUtf8(contact.storage)},
                   {"index", contact.index},
                   {"name", TextToUtf8(contact.name)},
                   {"nameEncoding", contact.nameEncoding},
                   {"number", TextToUtf8(CodePage::System().ToText(contact.number.number))},
                   {"numberType", contact.number.type},
                   {"numberPlan", contact.number.plan},
                   {"detailsLoaded", contact.detailsLoaded}};
    for (const DetailField& field : detailFields)
        object[field.name] = TextToUtf8(contact.details.*field.text);
    const ContactDate& birthday = contact.details.birthday;
    if (birthday.IsSet())
        object["birthday"] = {{"year", birthday.year}, {"month", birthday.month}, {"day", birthday.day}};
    return object;
}

bool ContactFromJson(const Json& object, Contact& contact, std::string& error) try {
    contact = {};
    contact.SetNameNumber(TextIn(object, "name"), TextIn(object, "number"),
                          static_cast<uint8_t>(NumberIn(object, "nameEncoding", ucs2Name, packedUcs2Name)));
    contact.storage = TextIn(object, "storage", "PC");
    contact.index = NumberIn(object, "index", 1, 0xFFFF);
    for (const DetailField& field : detailFields)
        contact.details.*field.text = TextIn(object, field.name);
    if (object.contains("birthday")) {
        const Json& birthday = object.at("birthday");
        contact.details.birthday = {static_cast<uint16_t>(NumberIn(birthday, "year", 0, 9999)),
                                    static_cast<uint8_t>(NumberIn(birthday, "month", 0, 12)),
                                    static_cast<uint8_t>(NumberIn(birthday, "day", 0, 31))};
    }
    return true;
} catch (const std::exception& failure) {
    error = failure.what();
    return false;
}

Json WriteVcardLine(std::string_view line) try {
    Contact contact;
    std::string error;
    if (!ContactFromJson(ObjectOfLine(line), contact, error)) return {{"error", error}};
    return {{"vcard", HandsetVcardOf(contact)}};
} catch (const std::exception& failure) {
    return {{"error", failure.what()}};
}

std::vector<Json> ReadVcardText(std::string_view bytes) {
    constexpr std::string_view nextCard = "\nBEGIN:VCARD";
    std::vector<Json> objects;
    while (!bytes.empty()) {
        const size_t end = std::min(bytes.find(nextCard), bytes.size() - 1) + 1;
        Contact contact;
        if (ParseHandsetVcard(contact, bytes.substr(0, end))) {
            objects.push_back(ContactToJson(contact));
        } else {
            objects.push_back({{"error", "doesn't begin with BEGIN:VCARD"}});
        }
        bytes.remove_prefix(end);
    }
    return objects;
}

std::vector<Json> ImportVcardText(std::string_view utf8) {
    std::vector<Json> objects;
    for (const auto& contact : ImportDesktopVcards(Utf8ToText(utf8)))
        objects.push_back(ContactToJson(*contact));
    return objects;
}

Json CheckContactLine(std::string_view line) try {
    const Json object = ObjectOfLine(line);
    const ContactForm form{TextIn(object, "storage", "PC"),
                           TextIn(object, "name"),
                           TextIn(object, object.contains("mobile") ? "mobile" : "number"),
                           TextIn(object, "home"),
                           TextIn(object, "office"),
                           TextIn(object, "fax"),
                           TextIn(object, "email"),
                           BirthdayIn(object)};
    if (form.storage != simStorage && form.storage != phoneStorage && form.storage != pcStorage)
        return {{"error", "storage is none of SM, ME and PC"}};
    const int textLength = NumberIn(object, "textLength", 0, 255);
    const HandsetNameLimits limits{object.value("hasPackedUcs2", false), [textLength](bool) {
                                       return textLength > 0 ? std::optional<int>(textLength) : std::nullopt;
                                   }};
    const auto problem = CheckContactForm(form, limits);
    if (!problem) return {{"ok", true}};
    return {{"ok", false},
            {"field", fieldNames[static_cast<int>(problem->field)]},
            {"words", TextToUtf8(problem->Sentence())}};
} catch (const std::exception& failure) {
    return {{"error", failure.what()}};
}

}  // namespace tarnbridge
