#pragma once

#include <QMenu>
#include <optional>

#include "core/base/StringTable.h"

namespace tarnbridge {

/// The sixteen colours of messages, each with a swatch and its name.
class ColourMenu : public QMenu {
    Q_OBJECT

public:
    /// \param ordinary  the colour that is the default one
    ColourMenu(const char* name, Word title, const char* icon, int ordinary, QWidget* parent);

    /// Marks the colour that holds, or none.
    void SetCurrent(std::optional<int> colour);

Q_SIGNALS:
    void chosen(int colour);
};

}  // namespace tarnbridge
