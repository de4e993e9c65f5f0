#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "simulator/HandsetServer.h"
#include "support/TemporaryFolder.h"

namespace tarnbridge::test {

/// How a VirtualHandset begins.
struct VirtualHandsetOptions {
    bool demo = false;                     ///< the demonstration content instead of an empty phone
    std::vector<std::string> faults = {};  ///< as `--fault` takes them
    int baud = 0;                          ///< 0: as fast as it goes
};

/// The locations in use of "SM" or "ME", each of its memory's own counting, with their states.
inline std::map<int, int> StatesIn(const simulator::HandsetContent& content, const std::string& memory) {
    std::map<int, int> states;
    for (const auto& [location, message] : content.Messages(memory)->items)
        states[location] = message.stat;
    return states;
}

/// A handset for a test, in this process, behind a device that the code under test opens. It is plugged in
/// when the constructor returns, and everything that goes wrong in making it ends the test program with a
/// word.
class VirtualHandset {
public:
    explicit VirtualHandset(VirtualHandsetOptions options = {});
    ~VirtualHandset();

    /// The device to open. It stays the same through Unplug and Plug.
    std::string Path() const { return link_.string(); }

    /// Runs `use(simulator::HandsetContent&)` between two bytes of the dialogue, to look at the content or to
    /// change it, and gives what it returns. Changed features hold from the next command on.
    template <typename Use>
    auto With(Use use) {
        return server_->With([&](simulator::Handset& handset) { return use(handset.Content()); });
    }

    /// Replaces all faults; counting begins anew.
    void SetFaults(const std::vector<std::string>& faults);

    /// From now on a command line (as sent, without its CR: "AT+X") is answered with these bytes as they
    /// stand, line ends included; an empty reply is silence.
    void Script(const std::string& line, const std::string& reply);

    /// Bytes that the handset says by itself, now.
    void Say(const std::string& bytes) { server_->Say(bytes); }

    /// The command lines heard since the last ForgetCommands, without CR, in order.
    std::vector<std::string> Commands() const { return server_->Commands(); }
    void ForgetCommands() { server_->ForgetCommands(); }

    /// How often this command line has been heard since then.
    size_t Count(const std::string& line) const;

    /// Waits, 10 s at most, until this command line has been heard since the last ForgetCommands.
    bool AwaitCommand(const std::string& line) { return server_->AwaitCommand(line, Milliseconds(10'000)); }

    /// As StatesIn.
    std::map<int, int> Locations(const std::string& memory) {
        return With([&](simulator::HandsetContent& content) { return StatesIn(content, memory); });
    }

    void Unplug() { server_->Unplug(); }
    void Plug();

    simulator::HandsetServer& Server() { return *server_; }

private:
    const TemporaryFolder folder_;
    const std::filesystem::path link_;
    std::unique_ptr<simulator::HandsetServer> server_;
};

}  // namespace tarnbridge::test
