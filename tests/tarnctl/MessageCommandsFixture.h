#pragma once

#include "simulator/Pdu.h"
#include "support/VirtualHandset.h"
#include "tarnctl/TarnctlFixture.h"

namespace tarnbridge {

/// The commands on messages, on a handset of 20 locations on the SIM and 100 of its own. Everything is asked
/// for as JSON.
class MessageCommandsFixture : public TarnctlFixture {
protected:
    MessageCommandsFixture() {
        handset.With([](simulator::HandsetContent& content) {
            content.simMessages.capacity = 20;
            content.phoneMessages.capacity = 100;
            return 0;
        });
    }

    ProcessOutput Sms(std::vector<std::string> arguments, const std::string& input = {}) {
        arguments.insert(arguments.begin(), {"--port", handset.Path(), "--json", "sms"});
        return Run(arguments, input);
    }

    /// The messages of one folder.
    std::vector<Json> List(const std::string& name) {
        const ProcessOutput output = Sms({"list", "--folder", name});
        EXPECT_EQ(output.exitCode, 0) << output.errors;
        return Records(output.output);
    }

    /// One field of each message.
    static std::vector<std::string> Texts(const std::vector<Json>& messages, const char* field = "text") {
        std::vector<std::string> texts;
        for (const Json& message : messages)
            texts.push_back(message.at(field));
        return texts;
    }

    /// A received message, or one part of it; `element` is its place in a long message. Locations are the
    /// memory's own.
    void Receive(const std::string& memory, int location, int stat, const std::u16string& text,
                 const std::string& element = {}) {
        simulator::MessageText message;
        message.number = "+4670123";
        message.text = text;
        message.elements = element;
        message.time = {.year = 2007,
                        .month = 3,
                        .day = 14,
                        .hour = 15,
                        .minute = 9,
                        .second = 26,
                        .minutesEastOfUtc = 60};
        handset.With([&](simulator::HandsetContent& content) {
            content.Messages(memory)->items[location] = {
                stat, simulator::WriteDeliver(message, content.identity.serviceCentre), {}};
            return 0;
        });
    }

    static std::string Part(int total, int number) {
        return {0, 3, 7, static_cast<char>(total), static_cast<char>(number)};
    }

    /// How many commands that begin so the handset has heard.
    size_t CountOf(const std::string& beginning) {
        const std::vector<std::string> commands = handset.Commands();
        return static_cast<size_t>(std::count_if(commands.begin(), commands.end(), [&](const auto& command) {
            return command.starts_with(beginning);
        }));
    }

    test::VirtualHandset handset;
};

}  // namespace tarnbridge
