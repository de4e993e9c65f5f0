#pragma once

#include <QPointer>
#include <QWidget>
#include <vector>

#include "messaging/Recipients.h"
#include "ui/messages/CSmsDialog.h"
#include "ui/messages/MessageSelection.h"

namespace tarnbridge {

class CTarnbridgeDoc;
class MessageOperations;

/// The windows in which messages are written, and the way of what is written in them into the folders.
class MessageEditors : public QObject {
    Q_OBJECT

public:
    /// All must outlive the editors; the windows stand over `owner`.
    MessageEditors(CTarnbridgeDoc& document, MessageOperations& operations, QWidget* owner);
    /// Closes what is open, without a question.
    ~MessageEditors() override;

    void New();

    // The selection holds one message, which is in its folder.

    /// To read and to change it. The window that it is open in already comes to the front.
    void Open(const MessageSelection& selection);
    /// Not for a message whose sender is a name, which the user is told.
    void Reply(const SmsRecord& record);
    void Forward(const SmsRecord& record);

    /// Closes all. False if one stays, since the user doesn't want to lose what is in it, or until it is
    /// saved.
    bool CloseAll();

    /// Whether one is to close as soon as its message is saved.
    bool IsSaving() const;

Q_SIGNALS:
    /// One has been saved, or was to be saved and closed and stays.
    void saved();
    void stays();

private:
    struct Window {
        QPointer<CSmsDialog> dialog;
        KeptSelections::Kept origin;  ///< what the message takes the place of
    };

    void Show(std::unique_ptr<MessageDraft> draft, MessageSelection origin = {});

    CTarnbridgeDoc& document_;
    MessageOperations& operations_;
    QWidget* const owner_;
    VerbatimMatcher matcher_;
    std::vector<Window> windows_;
};

}  // namespace tarnbridge
