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

}  // namespace
}  // namespace tarnbridge
