#include <gtest/gtest.h>

#include "tarnctl/ContactJson.h"

namespace tarnbridge {
namespace {

using json = nlohmann::json;

TEST(ContactJson, ComesBackAsItWas) {
    const json object = json::parse(R"({"storage": "ME", "index": 7, "name": "\u5927 A", "nameEncoding": 1,
        "number": "+886912", "numberType": 1, "numberPlan": 1, "detailsLoaded": false, "home": "1", "office": "2",
        "fax": "3", "email": "a@b", "memo": "m", "birthday": {"year": 2001, "month": 2, "day": 3}})");
    Contact contact;
    std::string error;
    ASSERT_TRUE(ContactFromJson(object, contact, error)) << error;
    EXPECT_EQ(json(ContactToJson(contact)), object);
    for (const char* const bad : {R"({"name": 1})", R"({"nameEncoding": 3})", R"({"birthday": "x"})"})
        EXPECT_FALSE(ContactFromJson(json::parse(bad), contact, error)) << bad;
}

TEST(ContactJson, ImportsAndChecks) {
    const auto imported = ImportVcardText("BEGIN:VCARD\nN:\xE5\xA4\xA7\nTEL;CELL;VOICE:1\nEND:VCARD\n");
    ASSERT_EQ(imported.size(), 1u);
    EXPECT_EQ(imported[0]["name"], "\xE5\xA4\xA7");
    EXPECT_FALSE(imported[0].contains("birthday"));

    EXPECT_EQ(CheckContactLine(R"({"name": "Ann"})").dump(), R"({"ok":true})");
    EXPECT_EQ(CheckContactLine(R"({"name": "Ann", "email": "x"})")["field"], "email");
    EXPECT_EQ(CheckContactLine(R"({"name": "12345678", "storage": "SM", "textLength": 7})")["field"], "name");
    for (const char* const bad : {"[]", "{", R"({"name": 1})", R"({"storage": "MT"})"})
        EXPECT_TRUE(CheckContactLine(bad).contains("error")) << bad;
}

}  // namespace
}  // namespace tarnbridge
