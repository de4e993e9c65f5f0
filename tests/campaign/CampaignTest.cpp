#include <algorithm>
#include <set>

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "campaign/World.h"
#include "messaging/MessageRemoval.h"
#include "messaging/MessageSending.h"
#include "messaging/MessageTransfer.h"
#include "messaging/Recipients.h"
#include "messaging/RecordText.h"
#include "messaging/ems/Ems.h"
#include "support/Must.h"

namespace tarnbridge::test {
namespace {

enum class Work { Read, Delete, ToPc, ToPhone, CopyToPhone, OnPhone, OtherMemory, Send };

struct Workflow {
    const char* name;
    Work work;
    std::string selected;  ///< messages by name
};

const Workflow workflows[] = {
    {"Read", Work::Read, ""},
    {"DeleteOnThePhone", Work::Delete, "lc"},
    {"MoveToThePc", Work::ToPc, "alb"},
    {"MoveToThePhone", Work::ToPhone, "qs"},
    {"CopyToThePhone", Work::CopyToPhone, "qs"},
    {"MoveOnThePhone", Work::OnPhone, "lb"},
    {"MoveToTheOtherMemory", Work::OtherMemory, "ac"},
    {"SendToThreeNumbers", Work::Send, "pr"},
};

constexpr std::string_view phoneNames = "aulbcd";
constexpr std::string_view pcNames = "prqs";

/// What strikes at one exchange. `@` is the number of exchanges before it.
struct Trouble {
    const char* fault;
    bool atBody = false;
    bool kills = false;  ///< the program dies when the command has been carried out, or the fault is met
};

const Trouble troubles[] = {
    {"late=5500,after=@,times=1"},
    {"late=12000,after=@,times=1"},
    {"overtaken=5500,after=@,times=1"},
    {"lost,after=@,times=1"},
    {"unheard,after=@,times=1"},
    {"silent-after=@"},
    {"refuse,after=@,times=1"},
    {"error=500,after=@,times=1"},
    {"lose-octet=9,after=@,times=1"},
    {"alter-octet=30,after=@,times=1"},
    {"unplug-after=@,bytes=4,for=2000"},
    {"late=>:6500,after=@,times=1", true},
    {"late=>:52000,after=@,times=1", true},
    {"lost=>,after=@,times=1", true},
    {"unheard=>,after=@,times=1", true},
    {"refuse-body=500,after=@,times=1", true},
    {"", false, true},
    {"unheard,times=1", false, true},
    {"lost=>,after=@,times=1", true, true},
};

/// What became of a run: the outcome of each selected message, or of each number in sending.
struct Report {
    bool killed = false;
    bool whole = true;  ///< of a reading: nothing is said to be missing
    std::map<char, MessageOutcome> outcomes;
    int sent = 0;
    int unconfirmed = 0;
};

class Campaign : public ::testing::TestWithParam<Workflow> {
protected:
    Campaign() { EmsInit(1); }
    ~Campaign() override { EmsShutdown(); }

    static Report Carry(Program& program, const Workflow& workflow);
    static void Judge(const Workflow& workflow, const Report& report, const Census& census);
    static void RunOne(const Workflow& workflow, const Trouble& trouble, size_t place);
};

std::vector<SmsRecord*> Select(MessageFolder& folder, const std::string& names) {
    std::vector<SmsRecord*> records;
    for (const char name : names)
        records.push_back(Find(folder, name));
    return records;
}

/// Does the work in a session in which the mirror has been read.
Report Campaign::Carry(Program& program, const Workflow& workflow) {
    const MessageTree& tree = program.tree;
    MessageFolder& inbox = tree.OnHandset(inboxPlace);
    MessageFolder& outbox = tree.OnPc(outboxPlace);
    Report report;
    const auto note = [&](const std::vector<MessageOutcome>& outcomes) {
        for (size_t i = 0; i < outcomes.size(); ++i)
            report.outcomes[workflow.selected[i]] = outcomes[i];
    };
    const auto transfer = [&](MessageFolder& from, MessageFolder& to, const char16_t* memory, bool move) {
        MessageTransfer task(program.worker, tree, program,
                             {&from, Select(from, workflow.selected), &to, memory, move});
        EXPECT_TRUE(RunTask(task));
        note(task.Outcomes());
    };
    switch (workflow.work) {
        case Work::Read: {
            bool lost = false;
            const MessageDownload::Report read = program.Read(lost);
            report.whole =
                !lost && !read.noMemory && read.unread.empty() && read.refused.empty() && read.missing == 0;
            break;
        }
        case Work::Delete: {
            MessageRemoval task(program.worker, tree, program, inbox, Select(inbox, workflow.selected));
            EXPECT_TRUE(RunTask(task));
            note(task.Outcomes());
            break;
        }
        case Work::ToPc:
            transfer(inbox, tree.OnPc(inboxPlace), u"", true);
            break;
        case Work::ToPhone:
            transfer(outbox, tree.OnHandset(draftPlace), u"ME", true);
            break;
        case Work::CopyToPhone:
            transfer(outbox, tree.OnHandset(draftPlace), u"ME", false);
            break;
        case Work::OnPhone:
            transfer(inbox, tree.OnHandset(outboxPlace), u"", true);
            break;
        case Work::OtherMemory:
            transfer(inbox, tree.OnHandset(draftPlace), u"ME", true);
            break;
        case Work::Send: {
            std::vector<MessageSending::Waiting> waiting;
            for (SmsRecord* const record : Select(outbox, workflow.selected))
                waiting.push_back({&outbox, record});
            MessageSending task(program.worker, tree, program, program.Time(), waiting);
            EXPECT_TRUE(RunTask(task));
            for (const MessageSending::Item& item : task.Items()) {
                report.sent += item.outcome.state == MessageOutcome::State::Done ? 1 : 0;
                report.unconfirmed += item.outcome.unconfirmed ? 1 : 0;
            }
            break;
        }
    }
    return report;
}

/// Every message is somewhere, whole, once, or named.
void Campaign::Judge(const Workflow& workflow, const Report& report, const Census& census) {
    EXPECT_EQ(census.strange, "");
    const auto at = [](const std::map<char, int>& where, char name) {
        const auto found = where.find(name);
        return found == where.end() ? 0 : found->second;
    };
    int unnamed = 0;  // doubles and pieces that nobody was told of
    for (const std::string_view names : {phoneNames, pcNames}) {
        const bool fromPhone = names == phoneNames;
        for (const char name : names) {
            SCOPED_TRACE(name);
            const int phone = at(census.onPhone, name);
            const int pc = at(census.onPc, name);
            const int pieces = at(census.pieces, name);
            const bool selected = workflow.selected.find(name) != std::string::npos;
            if (!selected) {
                EXPECT_EQ(phone, fromPhone ? 1 : 0);
                EXPECT_EQ(pc, fromPhone ? 0 : 1);
                EXPECT_EQ(pieces, 0);
                continue;
            }
            const bool copies = workflow.work == Work::CopyToPhone;
            if (workflow.work == Work::Send) {
                EXPECT_GE(pc, 1);
                continue;
            }
            if (report.killed) {
                EXPECT_GE(phone + pc, workflow.work == Work::Delete ? 0 : 1);
                unnamed += phone + pc > (copies ? 2 : 1) || pieces > 0 ? 1 : 0;
                continue;
            }
            const MessageOutcome& outcome = report.outcomes.at(name);
            const bool named = outcome.unconfirmed || !outcome.leftBehind.empty() || outcome.keptInDraft;
            switch (outcome.state) {
                case MessageOutcome::State::Done: {
                    const bool toPc = workflow.work == Work::ToPc;
                    EXPECT_EQ(phone, toPc || workflow.work == Work::Delete ? 0 : 1);
                    EXPECT_EQ(pc, toPc || copies ? 1 : 0);
                    EXPECT_EQ(pieces, 0);
                    break;
                }
                case MessageOutcome::State::NotTried:
                    EXPECT_EQ(phone, fromPhone ? 1 : 0);
                    EXPECT_EQ(pc, fromPhone ? 0 : 1);
                    EXPECT_EQ(pieces, 0);
                    break;
                case MessageOutcome::State::Failed:
                    EXPECT_NE(outcome.words, Word::Count);
                    EXPECT_GE(phone + pc, workflow.work == Work::Delete ? 0 : 1);
                    EXPECT_TRUE(named || (phone + pc == 1 && pieces == 0)) << "doubled, and nobody was told";
                    break;
            }
        }
    }
    EXPECT_LE(unnamed, 1) << "a kill repeats more than one item";
}

void Campaign::RunOne(const Workflow& workflow, const Trouble& trouble, size_t place) {
    World world;
    auto program = std::make_unique<Program>(world.time, world.phone, world.disk);
    bool lost = false;
    ASSERT_TRUE(program->Connect() && program->Read(lost).messages == 6 && !lost);

    std::string fault = trouble.fault;
    if (const size_t mark = fault.find('@'); mark != fault.npos)
        fault.replace(mark, 1, std::to_string(place));
    const auto references = [&] {
        unsigned count = 0;
        world.phone.Look(
            [&](simulator::HandsetLine& line) { count = line.Phone().State().messageReference; });
        return static_cast<int>(count);
    };
    const int sentBefore = references();
    if (!trouble.kills || trouble.atBody) world.phone.SetFaults({fault});
    size_t commands = 0;
    std::atomic<bool> killed{false};
    world.phone.OnCommand([&](simulator::HandsetLine& line, const std::string& command) {
        // After a body without an answer the probe is the next command.
        const bool now = trouble.atBody ? command.ends_with('?') : commands == place;
        ++commands;
        if (!trouble.kills || killed || !now) return;
        killed = true;
        world.disk.frozen = true;
        world.phone.KillUser();
        if (!fault.empty() && !trouble.atBody) line.SetFaults(Must(simulator::Faults::Parse({fault})));
    });
    Report report = Carry(*program, workflow);
    report.killed = killed;

    world.phone.OnCommand({});
    world.phone.SetFaults({});
    world.phone.Plug();
    if (killed) {
        program.reset();
        world.disk.frozen = false;
        program = std::make_unique<Program>(world.time, world.phone, world.disk);
        EXPECT_TRUE(program->loadedWhole);
        EXPECT_TRUE(program->Connect());
    }
    EXPECT_TRUE(program->ComesBack());
    if (workflow.work == Work::Read && report.whole && !killed) {
        const Census census = Count(program->tree);
        EXPECT_EQ(census.onPhone.size(), phoneNames.size()) << "what is said to be all lacks something";
        Judge(workflow, report, census);
    }
    const MessageDownload::Report all = program->Read(lost);
    EXPECT_TRUE(!lost && all.unread.empty() && all.refused.empty() && all.missing == 0);
    Judge(workflow, report, Count(program->tree));
    // Nobody can notice that a digit was altered on the wire: then it is another message until the next
    // reading.
    const bool altered = fault.starts_with("alter-octet");
    if (!killed && !altered && workflow.work != Work::OtherMemory) {
        const SmsRecord* const unread = Find(program->tree.OnHandset(inboxPlace), 'u');
        EXPECT_TRUE(unread != nullptr && unread->status == smsUnread) << "nobody has opened it";
    }
    if (workflow.work == Work::Send) {
        const int sent = references() - sentBefore;
        // `p` has one part, `r` three; what was sent of a message that failed half-way stays sent.
        std::multiset<std::string> kept;
        for (const MessagePlace where : {sentPlace, outboxPlace}) {
            for (const auto& record : program->tree.OnPc(where).records) {
                const char name = static_cast<char>(ShownText(*record)[0]);
                if (workflow.selected.find(name) == std::string::npos) continue;
                for (const std::string& number : NumbersOf(*record))
                    kept.insert(name + number);
            }
        }
        EXPECT_EQ(kept.size(), 6u) << "each number of each message is kept once";
        EXPECT_EQ(std::set(kept.begin(), kept.end()).size(), 6u);
        EXPECT_LE(sent, 12 + (killed ? 3 : 0));
    }
    Program fresh(world.time, world.phone, world.disk);
    EXPECT_TRUE(fresh.loadedWhole);
}

TEST_P(Campaign, OneFaultAtEachExchangeLosesNothing) {
    const Workflow& workflow = GetParam();
    size_t commands = 0;
    size_t bodies = 0;
    {
        World world;
        Program program(world.time, world.phone, world.disk);
        bool lost = false;
        ASSERT_TRUE(program.Connect() && program.Read(lost).messages == 6);
        world.phone.ForgetCommands();
        const Report report = Carry(program, workflow);
        ASSERT_TRUE(report.whole);
        for (const auto& [name, outcome] : report.outcomes)
            ASSERT_EQ(outcome.state, MessageOutcome::State::Done) << name;
        const std::vector<std::string> said = world.phone.Commands();
        commands = said.size();
        bodies = static_cast<size_t>(std::count_if(said.begin(), said.end(), [](const std::string& command) {
            return command.starts_with("AT+CMGW=") || command.starts_with("AT+CMGS=");
        }));
    }
    ASSERT_GT(commands, 4u);
    int runs = 0;
    for (const Trouble& trouble : troubles) {
        // The network may take its time for a message, the phone's memory not.
        if (std::string_view(trouble.fault).find("52000") != std::string_view::npos &&
            workflow.work != Work::Send)
            continue;
        for (size_t place = 0; place < (trouble.atBody ? bodies : commands); ++place) {
            SCOPED_TRACE(
                fmt::format("{}{} at exchange {}", trouble.kills ? "kill " : "", trouble.fault, place));
            RunOne(workflow, trouble, place);
            ++runs;
            if (HasFailure()) return;  // one is enough to look at
        }
    }
    for (const char* const noise : {"garbage=9", "unsolicited", "split=5,gap=1"}) {
        SCOPED_TRACE(noise);
        RunOne(workflow, {noise}, 0);
        ++runs;
    }
    RecordProperty("runs", runs);
}

INSTANTIATE_TEST_SUITE_P(Workflows, Campaign, ::testing::ValuesIn(workflows),
                         [](const auto& test) { return std::string(test.param.name); });

}  // namespace
}  // namespace tarnbridge::test
