#pragma once

#include <QImage>
#include <array>

namespace tarvo::art {

/// What the assistant's messages are.
enum class Title { Information, Question, Warning, Critical };

struct NamedTitle {
  const char* name;  ///< Of its file.
  Title title;
};

inline constexpr std::array<NamedTitle, 4> kTitles{{{"information", Title::Information},
                                                    {"question", Title::Question},
                                                    {"warning", Title::Warning},
                                                    {"critical", Title::Critical}}};

/// The picture of the button that ends a message: a speech bubble with the title's sign and, in its
/// corner, the square that stops things. 41 pixels square times `density`.
QImage TitlePicture(Title title, int density);

}  // namespace tarvo::art
