#include "messaging/DownloadWords.h"

#include "core/base/StringTable.h"

namespace tarnbridge {

std::u16string DownloadWords(const MessageDownload::Report& report, bool lost, bool cancelled) {
    std::u16string words;
    if (cancelled) return words;
    const auto add = [&words](const std::u16string& line) { words += (words.empty() ? u"" : u"\n") + line; };
    if (lost) add(Words(Word::HandsetLost));
    // A handset that doesn't answer says nothing about its memories.
    if (report.noMemory && !lost) add(Words(Word::NoMessageInHandset));
    std::u16string refused;
    for (const std::u16string& memory : report.refused)
        refused += (refused.empty() ? u"" : u", ") + MemoryWords(memory);
    if (!refused.empty()) add(Words(Word::MemoriesRefused, {refused}));
    if (!report.unread.empty())
        add(Words(Word::MessagesUnread, {static_cast<int64_t>(report.unread.size())}));
    if (report.missing > 0) add(Words(Word::MessagesMissing, {report.missing}));
    return words;
}

bool IsWhole(const MessageDownload::Report& report, bool lost, bool cancelled) {
    return !cancelled && DownloadWords(report, lost, cancelled).empty();
}

}  // namespace tarnbridge
