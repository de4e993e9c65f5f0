#pragma once

#include <QList>
#include <QObject>

#include "messaging/FormatChange.h"
#include "ui/messages/Command.h"

class QMenu;
class QToolBar;

namespace tarnbridge {

class ColourMenu;
class MessageEdit;

/// The commands for the look of a text. They show the look of the selection, or of what is typed next.
class FormatCommands : public QObject {
    Q_OBJECT

public:
    /// Belongs to the text.
    explicit FormatCommands(MessageEdit& text);

    void AddTo(QMenu& menu) const;
    void AddTo(QToolBar& bar) const;

private:
    using Attribute = std::optional<uint8_t> FormatChange::*;

    struct Toggle {
        QAction* action = nullptr;
        Attribute attribute = nullptr;
        uint8_t value = 0;
    };

    /// Makes the action set an attribute, and set it to `otherwise` when it is taken back.
    void Add(QAction* action, Attribute attribute, uint8_t value, uint8_t otherwise);
    QMenu* MakeGroup(Word title, const char* icon, Attribute attribute, uint8_t otherwise,
                     std::initializer_list<std::pair<CommandLook, uint8_t>> values);
    void Set(Attribute attribute, uint8_t value);
    void Follow();

    MessageEdit& text_;
    QList<Toggle> toggles_;
    QList<QAction*> styles_;
    QMenu* sizes_ = nullptr;
    QMenu* alignments_ = nullptr;
    ColourMenu* foreground_ = nullptr;
    ColourMenu* background_ = nullptr;
};

}  // namespace tarnbridge
