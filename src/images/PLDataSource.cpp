#include "images/PLDataSource.h"

#include <utility>

#include "images/PLTextException.h"
#include "platform/Files.h"

namespace tarnbridge {
namespace {

constexpr uint64_t largestFile = uint64_t{64} << 20;

[[noreturn]] void ThrowEndsEarly() {
    throw PLTextException(PLError::EndsEarly, "The file ends before its picture does.");
}

}  // namespace

std::span<const uint8_t> PLDataSource::readBytes(size_t count) {
    const std::span<const uint8_t> bytes = peekBytes(count);
    position_ += count;
    return bytes;
}

std::span<const uint8_t> PLDataSource::peekBytes(size_t count) const {
    if (count > bytes_.size() - position_) ThrowEndsEarly();
    return bytes_.subspan(position_, count);
}

void PLDataSource::seek(size_t position) {
    if (position > bytes_.size()) ThrowEndsEarly();
    position_ = position;
}

PLFileSource::PLFileSource(const std::filesystem::path& name) : PLDataSource(name) {
    Result<std::string> content = ReadFile(name, largestFile);
    if (!content) throw PLTextException(PLError::CannotRead, content.Failure().text);
    content_ = std::move(*content);
    setBytes({reinterpret_cast<const uint8_t*>(content_.data()), content_.size()});
}

PLMemSource::PLMemSource(std::span<const uint8_t> bytes, std::filesystem::path name)
    : PLDataSource(std::move(name)) {
    setBytes(bytes);
}

}  // namespace tarnbridge
