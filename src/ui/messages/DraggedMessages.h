#pragma once

#include <QMimeData>
#include <vector>

#include "messaging/MessageFolder.h"

namespace tarnbridge {

/// Messages on their way from one folder to another within this process, or a folder. Nothing of it is looked
/// at before whoever receives it has found it in its place.
class DraggedMessages : public QMimeData {
    Q_OBJECT

public:
    static constexpr const char* messagesType = "application/x-tarnbridge-messages";
    static constexpr const char* folderType = "application/x-tarnbridge-message-folder";

    DraggedMessages(MessageFolder& theFolder, std::vector<SmsRecord*> theRecords)
        : folder(&theFolder), records(std::move(theRecords)) {
        setData(QString::fromLatin1(messagesType), {});
    }
    explicit DraggedMessages(MessageFolder& theFolder) : folder(&theFolder) {
        setData(QString::fromLatin1(folderType), {});
    }

    MessageFolder* const folder;
    const std::vector<SmsRecord*> records;  ///< empty: the folder itself is on its way
};

}  // namespace tarnbridge
