#pragma once

#include <QString>
#include <functional>
#include <string>

#include "messaging/EditorSupport.h"
#include "messaging/ems/EmsSupport.h"
#include "ui/Await.h"

class QTextDocument;

namespace tarnbridge::test {

/// A picture of 16 x 16 whose first pixel is black and whose others are white.
MessageObject DotPicture();

/// The document as the user sees it: each stretch of one look with its attributes, each line with its
/// alignment.
std::string Describe(const QTextDocument& document);

}  // namespace tarnbridge::test
