#include "support/VirtualHandset.h"

#include <algorithm>

#include "support/Must.h"

namespace tarnbridge::test {
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
