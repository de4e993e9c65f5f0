#include "support/VirtualHandset.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace tarnbridge::test {
namespace {

template <typename T>
T Must(Result<T> result) {
    if (!result) {
        std::fprintf(stderr, "virtual handset: %s\n", result.Failure().text.c_str());
        std::abort();
    }
    return std::move(*result);
}

}  // namespace

VirtualHandset::VirtualHandset(VirtualHandsetOptions options) : link_(folder_ / "handset") {
    using simulator::HandsetContent;
    simulator::HandsetServer::Options serverOptions;
    serverOptions.link = link_;
    serverOptions.baud = options.baud;
    server_ = std::make_unique<simulator::HandsetServer>(
        options.demo ? HandsetContent::Demo() : HandsetContent::Empty(),
        Must(simulator::Faults::Parse(options.faults)), serverOptions);
    Must(server_->Start());
}

VirtualHandset::~VirtualHandset() {
    server_->Stop();
}

void VirtualHandset::SetFaults(const std::vector<std::string>& faults) {
    server_->SetFaults(Must(simulator::Faults::Parse(faults)));
}

void VirtualHandset::Script(const std::string& line, const std::string& reply) {
    server_->With([&](simulator::Handset& handset) { handset.Script(line, reply); });
}

size_t VirtualHandset::Count(const std::string& line) const {
    const std::vector<std::string> commands = Commands();
    return static_cast<size_t>(std::count(commands.begin(), commands.end(), line));
}

void VirtualHandset::Plug() {
    Must(server_->Plug());
}

}  // namespace tarnbridge::test
