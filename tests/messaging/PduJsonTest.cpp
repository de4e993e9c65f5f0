#include <gtest/gtest.h>

#include "support/ManualClock.h"
#include "tarnctl/PduJson.h"

namespace tarnbridge {
namespace {

using json = nlohmann::json;

std::string Encoded(const json& object) {
    std::string hex;
    std::string error;
    return EncodePduLine(object.dump(), hex, error) ? hex : "error: " + error;
}

TEST(PduJson, DecodesALine) {
    test::ManualClock clock;
    const auto object = DecodePduLine(
        "0791889653704434440C9188962143658700001120821105050A10050003040201906536FBCD026D50\r", clock);
    EXPECT_EQ(object["kind"], "deliver");
    EXPECT_EQ(object["number"], "+886912345678");
    EXPECT_EQ(object["numberType"], 1);
    EXPECT_EQ(object["serviceCentre"], "+886935074443");
    EXPECT_EQ(object["timestamp"]["iso"], "2011-02-28T11:50:50-05:00");
    EXPECT_EQ(object["timestamp"]["year"], 11);
    EXPECT_EQ(object["header"], "0003040201");
    EXPECT_EQ(object["concat"].dump(), R"({"reference":4,"total":2,"sequence":1})");
    EXPECT_EQ(object["text"], "Hello, {");
    EXPECT_FALSE(object.contains("truncated"));

    EXPECT_EQ(DecodePduLine("0006", clock).dump(), R"({"error":"neither SMS-DELIVER nor SMS-SUBMIT"})");
    EXPECT_TRUE(DecodePduLine("no PDU", clock).contains("error"));
    EXPECT_EQ(DecodePduLine("0000", clock)["truncated"], true);
    EXPECT_TRUE(DecodePduLine("\r", clock).contains("error")) << "an empty line";
    const auto noDate = DecodePduLine(
        "000400810000700030415190622301"
        "1B",
        clock);
    EXPECT_EQ(noDate["timestamp"]["month"], 0);
    EXPECT_FALSE(noDate["timestamp"].contains("iso"));
}

TEST(PduJson, DecodedLinesEncodeAgain) {
    test::ManualClock clock;
    for (const char* const hex :
         {"0791889653704434040C9188962143658700007030415190622312C8F71D14969741F9771D447F93C3F91F",
          "0011410B916407281553F80000AA0AE8329BFD4697D9EC37",
          "0019000C9188962143658700008020923295952314D6303B4D06D5DDF4341BC42E87E12072380F",
          "00440B911316325476F80004708070412051820D0605040B8423F0FF00801B0A7F",
          "00440B911316325476F8000870807041205182080500030A02015B57",
          "000405812143F500007080704120518206C3540A1B2A01",
          // Delta, the euro sign and a line feed; a name of 7 letters
          "00040DD0537A989E7EBB0100007030415190622305904D591104"})
        EXPECT_EQ(Encoded(DecodePduLine(hex, clock)), hex);
    EXPECT_EQ(Encoded(DecodePduLine("00090002812100000102030405060703C8321B", clock)).substr(0, 4), "0001")
        << "an enhanced validity is written as none";
}

TEST(PduJson, EncodesWithDefaultsAndRefuses) {
    EXPECT_EQ(Encoded({{"number", "+46708251358"}, {"text", "hellohello"}, {"messageReference", 0}}),
              "0001000B916407281553F800000AE8329BFD4697D9EC37");
    EXPECT_EQ(Encoded({{"number", "12"}, {"text", "[]"}, {"messageReference", 7}}).substr(4),
              "070281210000041BDEC607");
    EXPECT_EQ(Encoded({{"number", "12"},
                       {"concat", {{"reference", 258}, {"total", 2}, {"sequence", 1}}},
                       {"dcs", 8},
                       {"messageReference", 0},
                       {"text", "\xE5\xAD\x97"}}),
              "00410002812100080906080401020201"
              "5B57");
    // What the alphabet carries stays in septets; all else is UCS2 unless another coding is asked for.
    EXPECT_EQ(Encoded({{"number", "12"}, {"text", "5 \u20AC"}, {"messageReference", 0}}).substr(14, 4),
              "0004");
    EXPECT_EQ(Encoded({{"number", "12"}, {"text", "\u0436"}, {"messageReference", 0}}).substr(14),
              "08020436");
    EXPECT_EQ(Encoded({{"number", "12"}, {"text", "a\u00E9\u0436"}, {"dcs", 0}}),
              "error: the coding can't carry these letters of text: \u00E9\u0436");
    EXPECT_EQ(Encoded({{"number", 12}}), "error: number isn't a text") << "the field is named";
    const json refused[] = {
        json::array(),
        {{"text", "no number"}},
        {{"number", "12"}, {"dcs", 12}},
        {{"number", "12"}, {"kind", "report"}},
        {{"number", "12"}, {"concat", "1 of 2"}},
        {{"number", "12"}, {"header", "0x"}},
        {{"number", "12"}, {"protocolId", -1}},
        {{"number", "12"}, {"text", std::string(161, 'x')}},
        {{"number", "12"}, {"text", std::string(71, 'x')}, {"dcs", 8}},
        {{"number", "12"}, {"validity", {{"format", "absolute"}}}},
    };
    for (const json& object : refused)
        EXPECT_EQ(Encoded(object).substr(0, 6), "error:") << object;
}

}  // namespace
}  // namespace tarnbridge
