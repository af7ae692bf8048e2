#pragma once

#include <QIcon>

namespace tarvo {

/// The signs of message boxes, in the colours of the skin and sharp on every screen: a letter or
/// mark cut out of a disc, a triangle or an octagon.
enum class MessageSign { Information, Question, Exclamation, Critical };

QIcon MessageIcon(MessageSign sign);

}  // namespace tarvo
