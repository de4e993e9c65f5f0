#pragma once

#include "messaging/MessageDownload.h"
#include "ui/dialogs/TaskDialog.h"

namespace tarnbridge {

/// The messages of the handset being read. It goes by itself when there is nothing to be told.
class CSmsReadDialog : public TaskDialog {
    Q_OBJECT

public:
    CSmsReadDialog(std::unique_ptr<MessageDownload> download, QWidget* parent = nullptr);
    ~CSmsReadDialog() override;

    const MessageDownload& Download() const { return *download_; }

private:
    bool ShowEnd() override;

    const std::unique_ptr<MessageDownload> download_;
};

}  // namespace tarnbridge
