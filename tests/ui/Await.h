#pragma once

#include <functional>

namespace tarnbridge::test {

/// Runs the event loop until the condition holds; false after ten seconds.
bool Await(const std::function<bool()>& condition);

}  // namespace tarnbridge::test
