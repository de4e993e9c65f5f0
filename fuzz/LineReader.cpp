// The framing machine and the parser. The first byte chooses what is awaited, the second how large the pieces
// are.

#include "link/LineReader.h"

#include <algorithm>
#include <cstdint>
#include <string>

using namespace tarnbridge;

namespace {

class Host final : public LineReaderHost {
public:
    void OnPrompt() override {}
    void OnCommandEnd() override {
        ATResult result;
        reader->FetchResult(result);
        std::string text;
        std::u16string wide;
        for (int line = 0; line < 10; ++line) {
            for (int param = -1; param < 10; ++param) {
                result.GetNumber(line, param);
                result.GetText(wide, line, param);
            }
        }
    }
    void SwallowUntilStopped() override { rest = {}; }

    LineReader* reader = nullptr;
    std::string_view rest;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size < 2) return 0;
    static const char* const prefixes[] = {"", "+CMGR", "+CPMS", "+X"};
    std::atomic<bool> abortParse{false};
    Event cancel{ResetMode::Manual};
    Host host;
    LineReader reader(host, ParseStop{abortParse, cancel});
    host.reader = &reader;
    const size_t pieceSize = data[1] + 1u;
    host.rest = {reinterpret_cast<const char*>(data) + 2, size - 2};
    reader.SetUrcCallback([](const ATResult&) {});
    ATResult expected;
    expected.prefix = prefixes[data[0] & 3];
    expected.needsLine = (data[0] & 16) != 0;
    expected.allLines = (data[0] & 32) != 0;
    reader.SetExpected(expected);
    reader.SetExpectPduLine((data[0] & 4) != 0);
    reader.SetAwaitPrompt((data[0] & 8) != 0);
    while (!host.rest.empty()) {
        const std::string piece(host.rest.substr(0, pieceSize));
        host.rest.remove_prefix(piece.size());
        reader.Feed(piece);
    }
    return 0;
}
