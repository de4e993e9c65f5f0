#pragma once

#include <QString>
#include <functional>

class QWidget;

namespace tarnbridge {

class CTarnbridgeDoc;

/// Shows the widgets of the messages with demonstration content, one by one.
void ShowMessageWidgets(CTarnbridgeDoc& document, const std::function<void(QWidget&, const QString&)>& grab);

}  // namespace tarnbridge
