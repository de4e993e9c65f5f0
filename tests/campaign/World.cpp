#include "campaign/World.h"

#include <algorithm>

#include "core/app/ProfileFormat.h"
#include "core/app/StandardFolders.h"
#include "messaging/RecordText.h"
#include "messaging/ems/Ems.h"
#include "messaging/ems/EmsMessage.h"
#include "simulator/Pdu.h"

namespace tarnbridge::test {
namespace {

constexpr std::string_view longOnes = "lrs";
constexpr std::string_view onPhone = "aulbcd";
constexpr std::string_view onPc = "prqs";

std::string SavedProfile(Profile& profile) {
    std::string stream;
    SaveProfile(profile, [&stream](std::string_view piece) {
        stream += piece;
        return true;
    });
    return stream;
}

/// A message that was received, as the phone stores its parts.
void Receive(simulator::HandsetContent& content, const char* memory, char name, int stat) {
    const std::u16string text = World::TextOf(name);
    const size_t count = (text.size() + 152) / 153;
    for (size_t i = 0; i < count; ++i) {
        simulator::MessageText part;
        part.number = "+4670123";
        part.text = count == 1 ? text : text.substr(i * 153, 153);
        if (count > 1) part.elements = {0, 3, 7, static_cast<char>(count), static_cast<char>(i + 1)};
        part.time = {.year = 2007, .month = 3, .day = 14, .hour = 15, .minute = 9, .second = 26};
        content.Add(memory, stat, simulator::WriteDeliver(part, content.identity.serviceCentre));
    }
}

}  // namespace

std::u16string World::TextOf(char name) {
    const size_t length = longOnes.find(name) == longOnes.npos ? 12 : 400;
    std::u16string text;
    for (int i = 0; text.size() < length; ++i)
        text += std::u16string(1, static_cast<char16_t>(name)) + static_cast<char16_t>(u'0' + i % 10);
    return text;
}

World::World() : phone(time) {
    phone.With([](simulator::HandsetContent& content) {
        content.simMessages.capacity = 4;
        content.phoneMessages.capacity = 12;
        for (const char name : onPhone)
            Receive(content, name == 'a' || name == 'u' ? "SM" : "ME", name, name == 'u' ? 0 : 1);
        return 0;
    });
    Profile profile;
    EnsureStandardFolders(profile, FolderNames::OfProgram());
    for (const char name : onPc) {
        auto record = std::make_unique<SmsRecord>();
        record->emsMessage = EmsHandle::Make(0);
        AddText(record->emsMessage.Get(), TextOf(name));
        record->SettleParts();
        const std::u16string text = TextOf(name);
        record->text8.assign(text.begin(), text.end());
        record->address =
            SmsAddress(name == 'p' || name == 'r' ? "+4670001,+4670002,+4670003" : "+4670001", 0);
        record->status = smsComposed;
        record->storage = u"PC";
        MessageTree(profile.messageRoot).OnPc(outboxPlace).Append(std::move(record));
    }
    disk.profile = SavedProfile(profile);
}

Program::Program(VirtualTime& time, SimulatedPhone& phone, Disk& disk)
    : link(time, phone.Factory()), tree(profile.messageRoot), time_(time), disk_(disk) {
    loadedWhole = LoadProfile(disk.profile, profile) == ProfileLoad::Whole;
    EnsureStandardFolders(profile, FolderNames::OfProgram());
    worker.Start(link);
}

Program::~Program() {
    worker.Stop();
    link.Disconnect(true);
}

bool Program::Connect() {
    LinkKind kind{};
    return link.Connect("phone", kind);
}

bool Program::ComesBack() {
    for (int i = 0; i < 3; ++i) {
        if (link.Ping()) return true;
        link.Disconnect(true);
        Connect();
    }
    return false;
}

MessageDownload::Report Program::Read(bool& lost) {
    MessageDownload download(worker, tree);
    RunTask(download);
    lost = download.LostHandset();
    return download.GetReport();
}

bool Program::SaveNow() {
    if (!disk_.frozen) disk_.profile = SavedProfile(profile);
    return true;
}

Census Count(const MessageTree& tree) {
    Census census;
    const auto look = [&](MessageFolder& folder, std::map<char, int>& where) {
        for (const auto& record : folder.records) {
            const std::u16string text = ShownText(*record);
            const char name = text.empty() ? '?' : static_cast<char>(text[0]);
            const std::u16string whole = World::TextOf(name);
            if (text == whole)
                ++where[name];
            else if (whole.find(text) != whole.npos || record->LacksParts())
                ++census.pieces[name];
            else
                census.strange += name;
        }
    };
    for (const MessagePlace place : handsetPlaces)
        look(tree.OnHandset(place), census.onPhone);
    for (size_t place = 0; MessageFolder* const folder = tree.PcRoot().Child(place); ++place)
        look(*folder, census.onPc);
    return census;
}

SmsRecord* Find(MessageFolder& folder, char name) {
    for (const auto& record : folder.records) {
        if (ShownText(*record) == World::TextOf(name)) return record.get();
    }
    return nullptr;
}

}  // namespace tarnbridge::test
