// The loader over any bytes; what it loads is saved, loaded and saved again, to the same bytes.

#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "core/app/ProfileFormat.h"

namespace {

std::string Saved(tarnbridge::Profile& profile) {
    std::string stream;
    tarnbridge::SaveProfile(profile, [&stream](std::string_view piece) {
        stream += piece;
        return true;
    });
    return stream;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    using tarnbridge::ProfileLoad;
    tarnbridge::Profile profile;
    if (LoadProfile({reinterpret_cast<const char*>(data), size}, profile) == ProfileLoad::Foreign) return 0;
    const std::string saved = Saved(profile);
    tarnbridge::Profile again;
    if (LoadProfile(saved, again) != ProfileLoad::Whole || Saved(again) != saved) std::abort();
    return 0;
}
