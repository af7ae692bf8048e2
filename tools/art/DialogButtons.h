#pragma once

#include <QImage>
#include <array>

namespace tarvo::art {

/// What the buttons of the assistant's dialog stand for.
enum class Reply { Agree, Refuse };

struct NamedReply {
  const char* name;  ///< Of its file.
  Reply reply;
};

inline constexpr std::array<NamedReply, 4> kReplies{{{"yes", Reply::Agree},
                                                     {"no", Reply::Refuse},
                                                     {"ok", Reply::Agree},
                                                     {"cancel", Reply::Refuse}}};

/// A bar with round ends and a tick or a cross in the left one, uniform between them, so that it
/// can be stretched there. 89 by 25 pixels times `density`.
QImage ReplyPicture(Reply reply, int density);

}  // namespace tarvo::art
