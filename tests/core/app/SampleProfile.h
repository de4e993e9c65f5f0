#pragma once

#include <string>
#include <string_view>

#include "core/app/Profile.h"

namespace tarnbridge::test {

/// A small profile in which every field that is stored has a value of its own, and its bytes, put together by
/// hand.
void FillSample(Profile& profile);
std::string SampleBytes();

/// Fields as the format lays them down.
std::string Number16(unsigned number);
std::string Number32(uint32_t number);
std::string WideField(std::string_view ascii);
std::string BytesField(std::string_view text);
/// A folder up to the count of its records.
std::string FolderHead(std::string_view name, const std::string& attributes = std::string(21, '\0'));

/// The profile as a stream.
std::string Saved(Profile& profile);

}  // namespace tarnbridge::test
