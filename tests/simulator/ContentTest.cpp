#include <gtest/gtest.h>

#include "simulator/HandsetContent.h"
#include "simulator/NameCoding.h"
#include "simulator/Pdu.h"

namespace tarnbridge::simulator {
namespace {

TEST(State, ComesBackWhole) {
    const HandsetContent demo = HandsetContent::Demo();
    const std::string text = demo.ToJson();
    const auto again = HandsetContent::FromJson(text);
    ASSERT_TRUE(again) << again.Failure().text;
    EXPECT_EQ(again->ToJson(), text);
    EXPECT_EQ(again->phoneContacts.items.at(4).name, u"Надежда Орлова");
}

TEST(State, KeepsWhatItDoesNotKnow) {
    auto document = nlohmann::json::parse(HandsetContent::Demo().ToJson());
    document["files"]["C:"] = {1, 2, nullptr};
    document["identity"]["colour"] = "blue";
    document["features"]["later"] = true;
    document["messages"]["XX"] = "kept";
    document["messages"]["SM"]["wear"] = 0.5;
    document["messages"]["SM"]["items"][0]["note"] = {{"a", 1}};
    document["contacts"]["ME"]["items"][0]["birthday"] = "1980-01-01";
    const auto content = HandsetContent::FromJson(document.dump());
    ASSERT_TRUE(content) << content.Failure().text;
    EXPECT_EQ(nlohmann::json::parse(content->ToJson()), document);
}

TEST(State, IsRefusedWithAReason) {
    const nlohmann::json whole = nlohmann::json::parse(HandsetContent::Demo().ToJson());
    struct Row {
        const char* pointer;
        nlohmann::json value;
        const char* reason;
    };
    const Row rows[] = {
        {"/format", "another", "state of a virtual handset"},
        {"/version", 2, "version"},
        {"/identity", 3, "identity"},
        {"/identity/imei", 3, "imei of identity"},
        {"/messages/SM/capacity", -1, "capacity of SM"},
        {"/messages/SM/capacity", 1.5, "capacity of SM"},
        {"/messages/SM/items", "none", "items of SM"},
        {"/messages/SM/items/0/location", 26, "location"},
        {"/messages/SM/items/1/location", 1, "twice"},
        {"/messages/SM/items/0/stat", 8, "stat"},
        {"/messages/SM/items/0/pdu", "0", "pdu"},
        {"/messages/SM/items/0/pdu", "aa", "pdu"},
        {"/contacts/ME/items/0/number", "AT+CMGD=1", "dialled"},
        {"/contacts/ME/items/0/name", nullptr, "name"},
        {"/features/emptyIsOk", 1, "emptyIsOk"},
    };
    for (const Row& row : rows) {
        nlohmann::json broken = whole;
        broken[nlohmann::json::json_pointer(row.pointer)] = row.value;
        const auto content = HandsetContent::FromJson(broken.dump());
        ASSERT_FALSE(content) << row.pointer;
        EXPECT_NE(content.Failure().text.find(row.reason), std::string::npos) << content.Failure().text;
    }
    const std::string text = whole.dump();
    for (const std::string& bad : {std::string(), std::string("[]"), text.substr(0, text.size() / 2),
                                   std::string(100'000, '['), "{\"format\":\"\xff\"}" + text}) {
        EXPECT_FALSE(HandsetContent::FromJson(bad)) << bad.substr(0, 20);
    }
}

// 3GPP TS 23.038 6.1.2.1.1: "hellohello" is a vector that many documents give.
TEST(Pdu, PacksAsTheStandardSays) {
    MessageText message;
    message.number = "+46708251358";
    message.text = u"hellohello";
    EXPECT_EQ(WriteSubmit(message), "0001000B916407281553F800000AE8329BFD4697D9EC37");
    message.number = "Ab1";
    message.text = u"€";
    message.time = {2006, 12, 31, 23, 59, 58, -210};
    EXPECT_EQ(WriteDeliver(message, {}), "000406D041710C000060211332958549029B32");
}

}  // namespace
}  // namespace tarnbridge::simulator
