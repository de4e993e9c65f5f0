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

std::u16string WideIn(const Json& object, const char* name, const char* otherwise = "") {
    return Utf8ToText(TextIn(object, name, otherwise));
}

/// Takes the first card with its lines off a text of cards.
std::string_view TakeCard(std::string_view& bytes) {
    constexpr std::string_view nextCard = "\nBEGIN:VCARD";
    const size_t end = std::min(bytes.find(nextCard), bytes.size() - 1) + 1;
    const std::string_view card = bytes.substr(0, end);
    bytes.remove_prefix(end);
    return card;
}

/// As it is typed, or as ContactToJson has it.
std::u16string BirthdayIn(const Json& object) {
    if (!object.contains("birthday") || !object.at("birthday").is_object()) return WideIn(object, "birthday");
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
    contact.SetNameNumber(WideIn(object, "name"), WideIn(object, "number"),
                          static_cast<uint8_t>(NumberIn(object, "nameEncoding", ucs2Name, packedUcs2Name)));
    contact.storage = WideIn(object, "storage", "PC");
    contact.index = NumberIn(object, "index", 1, 0xFFFF);
    for (const DetailField& field : detailFields)
        contact.details.*field.text = WideIn(object, field.name);
    if (object.contains("birthday")) {
        const Json& birthday = ObjectIn(object, "birthday");
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
    std::vector<Json> objects;
    while (!bytes.empty()) {
        const std::string_view card = TakeCard(bytes);
        Contact contact;
        if (ParseHandsetVcard(contact, card)) {
            objects.push_back(ContactToJson(contact));
        } else {
            objects.push_back({{"error", "doesn't begin with BEGIN:VCARD"}});
        }
    }
    return objects;
}

std::vector<Json> ImportVcardText(std::string_view utf8) {
    std::vector<Json> objects;
    while (!utf8.empty()) {
        // One by one, since the reader passes over a card that it knows nothing of, and ends at an empty
        // line.
        const std::string_view card = TakeCard(utf8);
        if (card.find_first_not_of(" \t\r\n") == std::string_view::npos) continue;
        const auto contacts = ImportDesktopVcards(Utf8ToText(card));
        for (const auto& contact : contacts)
            objects.push_back(ContactToJson(*contact));
        if (contacts.empty()) objects.push_back({{"error", "has no name and no number that is known"}});
    }
    return objects;
}

Json CheckContactLine(std::string_view line) try {
    const Json object = ObjectOfLine(line);
    const ContactForm form{WideIn(object, "storage", "PC"),
                           WideIn(object, "name"),
                           WideIn(object, object.contains("mobile") ? "mobile" : "number"),
                           WideIn(object, "home"),
                           WideIn(object, "office"),
                           WideIn(object, "fax"),
                           WideIn(object, "email"),
                           BirthdayIn(object)};
    if (form.storage != simStorage && form.storage != phoneStorage && form.storage != pcStorage)
        return {{"error", "storage is none of SM, ME and PC"}};
    const int textLength = NumberIn(object, "textLength", 0, 255);
    const HandsetNameLimits limits{FlagIn(object, "hasPackedUcs2"), [textLength](bool) {
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
