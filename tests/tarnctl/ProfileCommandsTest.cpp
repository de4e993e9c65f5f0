// profile dump and copy, as a script meets them.

#include <nlohmann/json.hpp>
#include <sstream>

#include <gtest/gtest.h>

#include "core/app/ProfileFile.h"
#include "core/app/SampleProfile.h"
#include "platform/Files.h"
#include "platform/Process.h"
#include "support/TemporaryFolder.h"

namespace tarnbridge {
namespace {

using Json = nlohmann::json;

class ProfileCommands : public ::testing::Test {
protected:
    ProfileCommands() { EXPECT_TRUE(WriteFileAtomically(in, test::SampleBytes())); }

    static ProcessOutput Run(const std::vector<std::string>& arguments) {
        const auto output = RunProcess(TARNCTL, arguments, "", std::chrono::seconds(60));
        EXPECT_TRUE(output) << "did not end in time";
        return output ? *output : ProcessOutput();
    }

    ProcessOutput Dump() { return Run({"profile", "dump", in}); }
    ProcessOutput Copy() { return Run({"profile", "copy", in, out}); }

    static std::vector<Json> Records(const std::string& output) {
        std::vector<Json> records;
        std::istringstream lines(output);
        for (std::string line; std::getline(lines, line);)
            records.push_back(Json::parse(line));
        return records;
    }

    test::TemporaryFolder folder;
    const std::string in = (folder / "in").string();
    const std::string out = (folder / "new folder" / "out").string();
};

TEST_F(ProfileCommands, DumpShowsFoldersAndRecords) {
    const auto output = Dump();
    EXPECT_EQ(output.exitCode, 0) << output.errors;
    EXPECT_EQ(output.errors, "");
    const auto records = Records(output.output);
    std::string order;
    for (const Json& record : records)
        order += record["record"].get<std::string>() + ' ';
    EXPECT_EQ(order, "folder folder folder folder message folder folder folder contact settings connection ");
    const Json& user = records.at(3);
    EXPECT_EQ(user["folder"], 3);
    EXPECT_EQ(user["tree"], "messages");
    EXPECT_EQ(user["depth"], 2);
    EXPECT_EQ(user["path"], Json({"P", ""}));
    EXPECT_EQ(user["attributes"], Json::parse(R"({"systemKind":9,"readOnly":1,"folderKind":8,"imageIndex":8,
        "allowsSubfolders":1,"userFolder":1,"flag2":5,"flag3":6,"flag4":7})"));
    const Json& message = records.at(4);
    EXPECT_EQ(message["folder"], 3);
    EXPECT_EQ(message["status"], 7);
    EXPECT_EQ(message["number"], "Me");
    EXPECT_EQ(message["text"], "\u20AC");
    EXPECT_EQ(message["rawParts"], Json({"0070", "", "71"}));
    const Json& contact = records.at(8);
    EXPECT_EQ(contact["folder"], 6);
    EXPECT_EQ(contact["name"], "Ann");
    EXPECT_EQ(contact["extra"], Json({"1", "2", "3", "4"}));
    EXPECT_EQ(contact["birthday"]["year"], 1980);
    EXPECT_EQ(records.at(9)["lotusNotesPath"], "C:\\n");
    EXPECT_EQ(records.at(10)["apn"], "net");
}

TEST_F(ProfileCommands, CopyIsTheSameFile) {
    const auto output = Copy();
    EXPECT_EQ(output.exitCode, 0) << output.errors;
    EXPECT_EQ(*ReadFile(out), test::SampleBytes());
}

TEST_F(ProfileCommands, DamagedAndForeignFilesAreNamed) {
    const std::string whole = test::SampleBytes();
    ASSERT_TRUE(WriteFileAtomically(in, whole.substr(0, whole.size() - 1)));
    auto output = Dump();
    EXPECT_EQ(output.exitCode, 1);
    EXPECT_EQ(Records(output.output).size(), 11u);
    EXPECT_NE(output.errors.find("damaged"), std::string::npos);
    output = Copy();
    EXPECT_EQ(output.exitCode, 1);
    EXPECT_EQ(*ReadFile(out), whole) << "but for the lost zero, all of it was there";

    ASSERT_TRUE(WriteFileAtomically(in, "something else"));
    output = Dump();
    EXPECT_EQ(output.exitCode, 1);
    EXPECT_EQ(output.output, "");
    EXPECT_NE(output.errors.find("isn't a profile"), std::string::npos);
    EXPECT_EQ(Copy().exitCode, 1);
    EXPECT_EQ(*ReadFile(out), whole) << "nothing is written over it";
    EXPECT_EQ(Run({"profile", "dump", folder / "missing"}).exitCode, 1);
    EXPECT_EQ(Run({"profile", "copy", in}).exitCode, 2);
}

TEST_F(ProfileCommands, CopyRespectsTheOwnerAndKeepsWhatItCantRead) {
    ASSERT_TRUE(WriteFileAtomically(out, "kept"));
    SystemClock clock;
    auto owner = ProfileFile::Open(out, clock);
    ASSERT_TRUE(owner);
    const auto refused = Copy();
    EXPECT_EQ(refused.exitCode, 1);
    EXPECT_NE(refused.errors.find("in use"), std::string::npos);
    EXPECT_EQ(*ReadFile(out), "kept");
    owner.reset();
    const auto output = Copy();
    EXPECT_EQ(output.exitCode, 0);
    const auto kept = FindFiles(folder / "new folder", "out.*.bak");
    ASSERT_EQ(kept.size(), 1u);
    EXPECT_EQ(*ReadFile(kept[0]), "kept");
    EXPECT_NE(output.errors.find(kept[0].string()), std::string::npos);
}

}  // namespace
}  // namespace tarnbridge
