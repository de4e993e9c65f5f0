#include "tarnctl/TracingDevice.h"

#include <mutex>
#include <utility>

#include <fmt/format.h>

#include "tarnctl/Output.h"

namespace tarnbridge {
namespace {

class TracingDevice : public SerialDevice {
public:
    explicit TracingDevice(std::unique_ptr<SerialDevice> inner) : inner_(std::move(inner)) {}
    ~TracingDevice() override { EndLine(); }

    bool Open(const SerialSettings& settings, SerialOpenFailure& failure) override {
        return inner_->Open(settings, failure);
    }
    void Close() override { inner_->Close(); }
    LinkKind Kind() const override { return inner_->Kind(); }
    int QueuedCount() override { return inner_->QueuedCount(); }
    int Read(std::span<char> buffer) override {
        const int count = inner_->Read(buffer);
        if (count > 0) {
            const std::lock_guard guard(mutex_);
            received_.append(buffer.data(), static_cast<size_t>(count));
        }
        return count;
    }
    int Write(std::string_view bytes) override {
        EndLine();
        const int count = inner_->Write(bytes);
        const std::lock_guard guard(mutex_);
        sent_ = count < 0 ? "(not written)" : MakeVisible(bytes.substr(0, static_cast<size_t>(count)));
        return count;
    }
    void Purge() override { inner_->Purge(); }
    void WaitReadable(Milliseconds limit) override { inner_->WaitReadable(limit); }
    void Wake() override { inner_->Wake(); }
    bool HungUp() const override { return inner_->HungUp(); }

private:
    void EndLine() {
        const std::lock_guard guard(mutex_);
        if (!sent_.empty() || !received_.empty()) {
            PrintWords(fmt::format("> {} < {}", std::exchange(sent_, {}),
                                   MakeVisible(std::exchange(received_, {}))));
        }
    }

    const std::unique_ptr<SerialDevice> inner_;
    std::mutex mutex_;
    std::string sent_;
    std::string received_;
};

}  // namespace

SerialDeviceFactory TracingDevices(SerialDeviceFactory inner) {
    return [inner = std::move(inner)] { return std::make_unique<TracingDevice>(inner()); };
}

std::string MakeVisible(std::string_view bytes) {
    std::string visible;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '\r') {
            visible += "\\r";
        } else if (c == '\n') {
            visible += "\\n";
        } else if (c == '\\') {
            visible += "\\\\";
        } else if (byte < 0x20 || byte >= 0x7F) {
            visible += fmt::format("\\x{:02X}", byte);
        } else {
            visible += c;
        }
    }
    return visible;
}

}  // namespace tarnbridge
