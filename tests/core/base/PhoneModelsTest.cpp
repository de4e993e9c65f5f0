#include <gtest/gtest.h>

#include "core/base/PhoneModels.h"

namespace tarnbridge {
namespace {

using namespace std::string_literals;

PhoneModels Read(std::string_view content) {
    PhoneModels models;
    models.Load(content);
    return models;
}

PhoneModelInfo FieldsOf(const std::string& lines) {
    PhoneModelInfo info;
    EXPECT_TRUE(Read("[K]\n" + lines).Find(u"K", info));
    return info;
}

std::vector<std::u16string> KeysOf(const std::string& content) {
    std::vector<std::u16string> keys;
    const PhoneModels models = Read(content);
    for (const auto& [key, info] : models.All())
        keys.push_back(key);
    return keys;
}

TEST(PhoneModels, ValuesThatAreNotKnown) {
    EXPECT_EQ(FieldsOf("baudrate = 57600\nbaudrate = 7\n").baudRate, 115200u) << "no rate of a port";
    EXPECT_EQ(FieldsOf("baudrate = 57600\nbaudrate = fast\n").baudRate, 115200u);
    EXPECT_EQ(FieldsOf("baudrate = -110\n").baudRate, 115200u);
    EXPECT_TRUE(FieldsOf("filemanager = true\n").hasFileManager);
    EXPECT_FALSE(FieldsOf("mms = yes\n").hasMms);
    EXPECT_TRUE(FieldsOf("mms = true\nmms = FALSE\n").hasMms) << "values are compared exactly";
    EXPECT_FALSE(FieldsOf("mms = true\nmms = false\n").hasMms);
    EXPECT_EQ(FieldsOf("flowcontrol = noflowcontrol\nflowcontrol = none\n").flowControl, FlowControl::None);
    EXPECT_FALSE(FieldsOf("MMS = true\n").hasMms) << "names are compared exactly";
    EXPECT_EQ(FieldsOf("lcd_width = 99999999999999\n").lcdWidth, INT32_MAX);
}

TEST(PhoneModels, AnAssignmentIsScannedByWords) {
    EXPECT_EQ(FieldsOf("baudrate=9600\n").baudRate, 115200u) << "the first word takes it all";
    EXPECT_EQ(FieldsOf("baudrate= 9600\n").baudRate, 115200u);
    EXPECT_EQ(FieldsOf("baudrate =9600\n").baudRate, 9600u) << "a word begins after the sign";
    EXPECT_EQ(FieldsOf("\t baudrate \v = \f 9600\n").baudRate, 9600u);
    EXPECT_EQ(FieldsOf("baudrate 9600\n").baudRate, 115200u);
    EXPECT_EQ(FieldsOf("phonemodel =\nbaudrate = 9600\n").phoneModel, u"") << "no value on that line";
    EXPECT_EQ(FieldsOf("phonemodel = A\0B\nmms = true\n"s).phoneModel, u"A");
}

TEST(PhoneModels, KeysOfSections) {
    using Keys = std::vector<std::u16string>;
    EXPECT_EQ(KeysOf("[b]\n[a]\n[B]\n[a]\n"), (Keys{u"B", u"a", u"b"})) << "ordered by unit";
    EXPECT_EQ(KeysOf("[ZVK 4100]\n"), Keys{u"ZV"}) << "the scan ends at the blank, the cut takes a character";
    EXPECT_EQ(KeysOf("[ZVK"), Keys{u"ZV"});
    EXPECT_EQ(KeysOf("[A][B]\n"), Keys{u"A][B"});
    EXPECT_EQ(KeysOf("[X]\n[]\n[\n [Y]\n"), Keys{u"X"}) << "no key, and no section behind a blank";
}

TEST(PhoneModels, AModelBeginsWithTheDefaults) {
    const PhoneModels models = Read(
        "baudrate = 110\n[A]\nmms = true\nbaudrate = 9600\n[]\nlcd_width = 5\n[B]\n[A]\nlcd_width = 7\n");
    PhoneModelInfo info;
    ASSERT_TRUE(models.Find(u"B", info));
    EXPECT_FALSE(info.hasMms);
    EXPECT_EQ(info.baudRate, 115200u);
    EXPECT_EQ(info.lcdWidth, 128);
    ASSERT_TRUE(models.Find(u"A", info));
    EXPECT_EQ(info.lcdWidth, 7) << "of two with one key the later counts";
    EXPECT_EQ(info.baudRate, 115200u);
}

TEST(PhoneModels, TheRestOfALongLineIsALineOfItsOwn) {
    const std::string filler(1023, 'x');
    EXPECT_EQ(FieldsOf(filler + "baudrate = 9600\n").baudRate, 9600u);
    EXPECT_EQ(FieldsOf(filler.substr(1) + "baudrate = 9600\n").baudRate, 115200u)
        << "only from byte 1,023 on";
    EXPECT_EQ(KeysOf("[K]\n" + filler + "[L]\n"), (std::vector<std::u16string>{u"K", u"L"}));
}

TEST(PhoneModels, WithoutAnyTheBuiltInOnes) {
    for (const char* content : {"", "no model here\nmms = true\n", "[]\n"}) {
        const PhoneModels models = Read(content);
        ASSERT_EQ(models.All().size(), 2u);
        PhoneModelInfo info;
        ASSERT_TRUE(models.Find(u"ZVK4010", info));
        EXPECT_EQ(info.baudRate, 57600u);
    }
}

TEST(PhoneModels, TheModelInUse) {
    const PhoneModels models = Read("[Beta]\n[alpha]\n");
    EXPECT_EQ(models.InUse(u"ALPHA").first, u"alpha");
    EXPECT_EQ(models.InUse(u"gamma").first, u"Beta") << "the first by unit";
    EXPECT_EQ(models.InUse(u"").first, u"Beta");
}

}  // namespace
}  // namespace tarnbridge
