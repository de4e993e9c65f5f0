#pragma once

#include <span>

#include "core/base/StringTable.h"

class QToolBar;
class QWidget;

namespace tarnbridge {

class CTarnbridgeDoc;
class FormView;
struct PhoneModelInfo;

/// A feature of the program: its number in the settings, how it is called and drawn, and how its two views
/// are made.
struct ViewEntry {
    int number;
    Word name;
    const char* icon;
    /// Whether it is offered for a phone model.
    bool (*offered)(const PhoneModelInfo& model);
    FormView* (*makeForm)(CTarnbridgeDoc& document, QWidget* parent);
    QToolBar* (*makeToolbar)(FormView& form);
};

/// All features that are there, in the order of their buttons.
std::span<const ViewEntry> Views();

/// The feature that a stored number opens: the messages where there is none of that number, or where the
/// model doesn't have it.
const ViewEntry& ViewToOpen(int number, const PhoneModelInfo& model);

}  // namespace tarnbridge
