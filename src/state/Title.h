#pragma once

namespace tarvo {

/// The title of a message picks its icon, or the assistant's face; the word itself is never shown.
/// A message without one shows no box. Mad is the assistant's own: it isn't passed with a message.
enum class Title { None, Information, Question, Warning, Critical, Mad };

}  // namespace tarvo
