#pragma once

#include <atomic>
#include <memory>

#include "platform/SerialDevice.h"

namespace tarnbridge::bench {

/// Counts what passes, to know its time on the wire.
class CountingDevice : public SerialDevice {
public:
    CountingDevice(std::unique_ptr<SerialDevice> inner, std::atomic<size_t>& bytes)
        : inner_(std::move(inner)), bytes_(bytes) {}

    bool Open(const SerialSettings& settings, SerialOpenFailure& failure) override {
        return inner_->Open(settings, failure);
    }
    void Close() override { inner_->Close(); }
    LinkKind Kind() const override { return inner_->Kind(); }
    int QueuedCount() override { return inner_->QueuedCount(); }
    int Read(std::span<char> buffer) override { return Count(inner_->Read(buffer)); }
    int Write(std::string_view bytes) override { return Count(inner_->Write(bytes)); }
    void Purge() override { inner_->Purge(); }
    void WaitReadable(Milliseconds limit) override { inner_->WaitReadable(limit); }
    void Wake() override { inner_->Wake(); }
    bool HungUp() const override { return inner_->HungUp(); }

private:
    int Count(int count) {
        if (count > 0) bytes_ += static_cast<size_t>(count);
        return count;
    }

    const std::unique_ptr<SerialDevice> inner_;
    std::atomic<size_t>& bytes_;
};

}  // namespace tarnbridge::bench
