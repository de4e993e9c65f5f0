#pragma once

#include <QString>
#include <vector>

#include "messaging/SmsRecord.h"

class QPagedPaintDevice;
class QPrinter;
class QWidget;

namespace tarnbridge {

/// A message as it is printed: a copy, and the name of its folder.
struct PrintedMessage {
    SmsRecord record;
    QString folder;
};

/// Prints messages, with their pictures, one below the other: black on white, none across two pages that fits
/// on one. False when the device can't be painted on.
bool PrintMessages(QPagedPaintDevice& device, const std::vector<PrintedMessage>& messages);

/// Lets the user choose a printer, and prints; or shows the pages first, from where they can be printed too.
void AskAndPrint(const std::vector<PrintedMessage>& messages, QWidget* window);
void ShowPrintPreview(const std::vector<PrintedMessage>& messages, QWidget* window);

}  // namespace tarnbridge
