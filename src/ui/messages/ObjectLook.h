#pragma once

#include <QImage>
#include <QString>

#include "messaging/MessageObject.h"

namespace tarnbridge {

/// What the user calls an object: "Sound 4", "Melody", "Picture, 16 x 16", the name on a contact card.
QString NameOfObject(const MessageObject& object);

/// The same with what a predefined sound or animation means (3GPP TS 23.040, 9.2.3.24.10.3): "Sound 4:
/// Notify".
QString DescriptionOfObject(const MessageObject& object);

/// The name of the program's drawing that stands for objects of the kind.
QString IconOfObject(const MessageObject& object);

/// How many images an object has to show: 1 for a picture, the frames of an animation, 0 for all others and
/// for one whose content isn't what its attributes say.
int FrameCount(const MessageObject& object);

/// One of them, a pixel for each of its own.
QImage FrameOf(const MessageObject& object, int frame);

}  // namespace tarnbridge
