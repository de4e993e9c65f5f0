#include <gtest/gtest.h>

#include "core/app/ProfileFormat.h"
#include "core/app/SampleProfile.h"
#include "messaging/MessageTextLine.h"
#include "messaging/ems/Ems.h"

namespace tarnbridge {
namespace {

TEST(ImportedMessages, SurviveASaveAndALoad) {
    ASSERT_EQ(EmsInit(uint8_t{0}), EmsResult::Done);
    const std::u16string head = u"\"+420123\"\t\"2007/03/14 15:09:26\"\t\"";
    const std::u16string lines[] = {
        head + u"plain \x1B{\"\r\n",
        head + std::u16string(200, u'x') + u"\"\r\n",
        head + std::u16string(100, u'\u4E2D') + u"\"\r\n",
        head + u"\"\r\n",
    };
    Profile profile;
    for (const std::u16string& line : lines) {
        SmsRecord& record = profile.messageRoot.Append(std::make_unique<SmsRecord>());
        ASSERT_EQ(ReadMessageLine(line, 0, record), MessageLineFault::None);
    }
    Profile loaded;
    ASSERT_EQ(LoadProfile(test::Saved(profile), loaded), ProfileLoad::Whole);
    ASSERT_EQ(loaded.messageRoot.records.size(), std::size(lines));
    for (size_t i = 0; i < std::size(lines); ++i) {
        SCOPED_TRACE(i);
        const SmsRecord& saved = *profile.messageRoot.records[i];
        SmsRecord& back = *loaded.messageRoot.records[i];
        EXPECT_EQ(back.status, smsComposed);
        EXPECT_EQ(back.storage, u"PC");
        EXPECT_EQ(back.address, saved.address);
        EXPECT_EQ(back.timestamp, saved.timestamp);
        EXPECT_EQ(back.rawParts, saved.rawParts);
        // What a reader that knows the parts alone makes of them.
        ASSERT_TRUE(back.EnsureEmsMessage());
        EXPECT_EQ(back.TextAsWide(), saved.TextAsWide());
        std::u16string line = saved.TextAsWide().empty() ? u"" : lines[i];
        std::erase(line, u'\x1B');
        EXPECT_EQ(MessageLineOf(back), line);
        back.emsMessage = {};
    }
    EmsShutdown();
}

}  // namespace
}  // namespace tarnbridge
