#pragma once

#include <QMainWindow>
#include <memory>

#include "messaging/MessageDraft.h"

class QLabel;
class QLineEdit;

namespace tarnbridge {

class FormatCommands;
class MessageEdit;
class NoteLine;
class ObjectCommands;

/// The window in which one message is written. Several may be open. It checks what is to be sent or saved and
/// makes the record; its owner puts that where it belongs and says so. It deletes itself when it is closed.
class CSmsDialog : public QMainWindow {
    Q_OBJECT

public:
    /// All must outlive the window.
    struct Surroundings {
        UserInteraction& user;
        Clock& clock;
        const RecipientMatcher& matcher;
    };

    CSmsDialog(std::unique_ptr<MessageDraft> draft, const Surroundings& surroundings,
               QWidget* parent = nullptr);
    ~CSmsDialog() override;

    /// Adds a name or a number to the recipients; when there are too many, says so.
    void AddRecipient(const QString& recipient);

    /// The owner has kept the message: nothing is unsaved any more. A window that was to be closed closes.
    void NoteSaved();

    /// The message couldn't be kept, or the user doesn't want it any more. The window stays.
    void NoteNotSaved();

    /// Whether it is to close as soon as the message is saved.
    bool IsClosing() const { return closes_; }

    /// The owner has taken the message over to send it. The window closes.
    void NoteSent();

    MessageEdit& Text() { return *text_; }

Q_SIGNALS:
    /// The user wants this message to be sent or kept. It is composed now, without fault, and holds no
    /// EmsMessage of its own; it ends when the signal has been handled.
    void sendWanted(const SmsRecord& record);
    void saveWanted(const SmsRecord& record);
    /// It was to be closed, and stays.
    void stays();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void MakeCommands();
    void MakeMenus(const FormatCommands& formats, const ObjectCommands& objects);
    void MakeToolBar(const FormatCommands& formats, const ObjectCommands& objects);
    void LayOut();
    void Refresh();
    void Send();
    void Save(bool closes);
    std::optional<SmsRecord> MakeRecord(const CheckedRecipients& checked);

    const Surroundings surroundings_;
    const std::unique_ptr<MessageDraft> draft_;
    QLineEdit* const recipients_;
    MessageEdit* const text_;
    NoteLine* const note_;
    QLabel* const counter_;
    QAction* send_ = nullptr;
    QAction* save_ = nullptr;
    QAction* close_ = nullptr;
    QAction* addContact_ = nullptr;
    bool closes_ = false;  // when the message is saved
};

}  // namespace tarnbridge
