#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <utility>

#include "images/PLObject.h"

namespace tarnbridge {

/// The bytes that a picture is decoded from, with a place to read at. What is handed out stays valid as long
/// as the source does.
class PLDataSource : public PLObject {
public:
    /// Its file type may be recognised by this name.
    const std::filesystem::path& name() const { return name_; }
    size_t size() const { return bytes_.size(); }
    size_t position() const { return position_; }

    /// The next `count` bytes, and steps over them. Throws EndsEarly, with nothing changed, if there are
    /// fewer.
    std::span<const uint8_t> readBytes(size_t count);

    /// The same without moving.
    std::span<const uint8_t> peekBytes(size_t count) const;

    /// Moves to an offset from the start. Throws EndsEarly, with nothing changed, if it lies behind the end.
    void seek(size_t position);

protected:
    explicit PLDataSource(std::filesystem::path name) : name_(std::move(name)) {}
    void setBytes(std::span<const uint8_t> bytes) { bytes_ = bytes; }

private:
    std::filesystem::path name_;
    std::span<const uint8_t> bytes_;
    size_t position_ = 0;
};

/// A file, read whole. Throws CannotRead, also for a file above 64 MB.
class PLFileSource : public PLDataSource {
public:
    explicit PLFileSource(const std::filesystem::path& name);

private:
    std::string content_;
};

/// A block of memory, which must outlive the source.
class PLMemSource : public PLDataSource {
public:
    explicit PLMemSource(std::span<const uint8_t> bytes, std::filesystem::path name = {});
};

}  // namespace tarnbridge
