#pragma once

#include <optional>
#include <vector>

#include "text/Text.h"

namespace tarvo {

/// The files that a ship script names, and the report on whether they are there.

struct ShipReference {
  TextView Label;  ///< As the report shows it, colon and all.
  Text Path;       ///< Below the game's folder, a backslash in front; may hold any character.
  bool IsScript;   ///< The compiled script, Path + "c", does as well.
};

/// The references of a ship script in the order of the report. Nothing is parsed: a value begins
/// behind its key, such as `"Name": "`, and ends one character in front of the next comma, where
/// the closing quote is expected. A model that the script doesn't name isn't a reference; the other
/// two are taken from the script's beginning when their keys are missing, so they are never right.
std::vector<ShipReference> ShipReferences(FileTextView script);

/// True when the beginning of a ship script shows all its references, whatever follows.
bool ShowsAllReferences(FileTextView head);

/// The answer to the question for one file.
struct FileAnswer {
  TextView Words;
  bool Found = false;
};

struct FileAnswers {
  FileAnswer File;
  std::optional<FileAnswer> Compiled;  ///< Nothing where it wasn't looked for.

  bool InOrder() const { return File.Found || (Compiled && Compiled->Found); }
};

struct CheckedReference {
  ShipReference Reference;
  FileAnswers Answers;
};

/// What was looked for, with CR LF at the end of each line. Control characters are blanks in it.
Text CheckReport(TextView gamePath, const std::vector<CheckedReference>& references);

/// The verdict on a ship with that many critical errors; no line end at its end.
Text CheckVerdict(int errors);

}  // namespace tarvo
