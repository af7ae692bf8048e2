#include "tgl/TGLFileRep.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <string>
#include <utility>

#include "platform/PlatformError.h"
#include "text/CodePage.h"
#include "text/RaisedError.h"
#include "text/Utf8.h"
#include "tgl/Blanks.h"
#include "tgl/FileHelpers.h"
#include "tgl/KeyIndex.h"
#include "tgl/NameKeys.h"
#include "tgl/TGLStringHasher.h"

namespace tarvo {
namespace {

constexpr std::int64_t kGreatestNumber = std::numeric_limits<std::int32_t>::max();

Text Decimal(std::int32_t number) {
  return TextFromUtf8(std::to_string(number));
}

/// The bytes that the offset blocks of so many strings take.
std::int64_t OffsetBlockBytes(std::int32_t count) {
  return std::int64_t{count} * static_cast<std::int64_t>(kTGLOffsetBlockBytes);
}

}  // namespace

/// Opens the file and runs `step` on it. Every failure ends in one error, with the version
/// forgotten.
template <class Step>
auto TGLFileRep::Reading(TextView Filename, Step step) {
  Text words;
  int code = 0;
  try {
    if (IsBlank(Filename)) {
      throw RaisedError(u"TGLFile.Load", u"No source filename specified.  Load failed.");
    }
    if (!helper_FileExists(files_, Filename)) {
      throw RaisedError(u"TGLFile.Load",
                        u"Couldn't find source file '" + Text(Filename) + u".'  Load failed.")
          .Because(kNoSuchFile);
    }
    VBFileStream stream(files_);
    stream.OpenFile(Filename, VBFileStream::Access::Read);
    Read_FileHeader(stream);
    Read_FileOffsetBlocks(stream);
    return step(stream);
  } catch (const RaisedError& error) {
    words = error.Description;
    code = error.SystemCode;
  } catch (const PlatformError& error) {
    words = SystemWords(error.Code);
    code = error.Code;
  }
  header_.MajorVersion = 0;
  header_.MinorVersion = 0;
  throw RaisedError(u"TGLFileRep.ReadFile",
                    u"An error occurred while attempting to read the file.  Error: " + words)
      .Because(code);
}

TGLStrings TGLFileRep::ReadFile(TextView Filename) {
  return Reading(Filename, [&](VBFileStream& stream) {
    const std::vector<TGLStrings::FilePlaces> places = Read_Places(stream);
    TGLStrings strings(stream.TakeFile(), places);
    if (strings.Count() < header_.StringCount) {
      throw RaisedError(u"TGLFileRep.ReadFile", u"There is no string at the place " +
                                                    Decimal(strings.Count() + 1) +
                                                    u", as names of the file differ only in case.");
    }
    return strings;
  });
}

TGLEntries TGLFileRep::ReadEntries(TextView Filename) {
  return Reading(Filename, [&](VBFileStream& stream) {
    if (stream.CurrentFilePos() > std::int64_t{stream.FileSize()} + 1) {
      throw RaisedError(u"TGLFileRep.ReadEntries", u"The file ends inside its offset blocks.");
    }
    TGLEntries entries;
    entries.places_.resize(static_cast<std::size_t>(header_.StringCount));
    for (std::size_t i = 0; i < kTGLColumns.size(); ++i) {
      stream.ReadLong();  // The size of the block: nothing depends on it.
      for (TGLEntries::Places& places : entries.places_) {
        places[i] = stream.PassString(kTGLColumns[i].Form);
      }
    }
    entries.file_ = stream.TakeFile();
    return entries;
  });
}

void TGLFileRep::Read_FileHeader(VBFileStream& stream) {
  for (const auto field : kTGLHeaderFields) header_.*field = stream.ReadLong();
  const bool isWhole = stream.FileSize() >= static_cast<std::int32_t>(kTGLHeaderBytes);
  if (!isWhole || header_.Magic != kTGLMagic) {
    throw RaisedError(u"TGLFileRep.Read_FileHeader",
                      u"The file does not appear to be a valid TGL file!");
  }
  if (header_.MajorVersion != kTGLMajorVersion || header_.MinorVersion != kTGLMinorVersion) {
    throw RaisedError(u"TGLFileRep.Read_FileHeader",
                      u"Wrong file version.  The file version is " + Decimal(header_.MajorVersion) +
                          u"." + Decimal(header_.MinorVersion) + u" - expected version " +
                          Decimal(kTGLMajorVersion) + u"." + Decimal(kTGLMinorVersion) + u".");
  }
}

/// The strings are found by their terminators, so the offset blocks are passed over, and no memory
/// is taken for a count that the file may not keep.
void TGLFileRep::Read_FileOffsetBlocks(VBFileStream& stream) {
  const std::int64_t bytes = OffsetBlockBytes(header_.StringCount);
  if (bytes <= 0 || bytes > kGreatestNumber) {
    throw RaisedError(u"TGLFileRep.Read_FileOffsetBlocks",
                      u"An error occurred while reading in the file offset blocks!  Error: A file "
                      u"can't hold " +
                          Decimal(header_.StringCount) + u" strings.");
  }
  stream.Skip(static_cast<std::uint32_t>(bytes));
}

/// Names past the file's end are blank, so that a file which can't hold its count of strings ends
/// at the first of them.
std::vector<TGLStrings::FilePlaces> TGLFileRep::Read_Places(VBFileStream& stream) {
  std::vector<TGLStrings::FilePlaces> places;
  const auto count = static_cast<std::size_t>(header_.StringCount);
  if (stream.CurrentFilePos() <= stream.FileSize()) places.reserve(count);
  for (std::size_t column = 0; column < kTGLColumns.size(); ++column) {
    const StringType form = kTGLColumns[column].Form;
    stream.ReadLong();  // The size of the block: nothing depends on it.
    for (std::size_t i = 0; i < count; ++i) {
      if (column == 0) {
        if (stream.CurrentFilePos() > stream.FileSize()) TGLStrings::RefuseBlankName();
        places.emplace_back();
      }
      places[i][column] = stream.PassString(form);
    }
  }
  return places;
}

void TGLFileRep::WriteFile(TextView Filename, const TGLStrings* Strings, bool Overwrite) {
  CheckTarget(Filename, Strings, Overwrite);
  VBFileStream stream(files_);
  stream.OpenFile(Filename, VBFileStream::Access::Replace);
  Write_Strings(stream, *Strings);
  stream.CloseFile();
}

FileText TGLFileRep::FileBytes(const TGLStrings& Strings) {
  RequireStrings(Strings);
  VBFileStream stream(files_);
  stream.OpenMemory();
  Write_Strings(stream, Strings);
  return stream.TakeWritten();
}

void TGLFileRep::Write_Strings(VBFileStream& stream, const TGLStrings& strings) {
  Encoded encoded{strings, {}, {}, {}};
  Write_Encode(encoded);
  Write_SortString(encoded);
  Write_CheckNames(encoded);
  const TGLBlockSizes sizes = Write_CalcOffsetBlocks(encoded);
  Write_FileHeader(stream, strings.Count());
  Write_FileOffsetBlocks(stream, encoded);
  for (std::size_t column = 0; column < kTGLColumns.size(); ++column) {
    stream.WriteLong(sizes.*kTGLColumns[column].BlockSize);
    Write_Column(stream, encoded, column);
  }
}

void TGLFileRep::RequireStrings(const TGLStrings& strings) {
  if (strings.Count() > 0) return;
  throw RaisedError(u"TGLFile.Update",
                    u"There are no TGL strings in the Strings() collection!  Update failed.");
}

void TGLFileRep::CheckTarget(TextView Filename, const TGLStrings* Strings, bool Overwrite) {
  const auto fail = [](const Text& words) { throw RaisedError(u"TGLFile.Update", words); };
  if (IsBlank(Filename)) fail(u"No output filename specified!  Update failed.");
  if (!Strings) fail(u"Invalid parameter.  Parameter 'Strings' is Null.  Update failed.");
  RequireStrings(*Strings);
  if (!Overwrite && helper_FileExists(files_, Filename)) {
    fail(u"Output file '" + Text(Filename) +
         u"' already exists and Overwrite parameter is False.  Update failed.");
  }
}

/// The bytes of a field as they will stand in the file, without terminator.
FileTextView TGLFileRep::FieldOf(const Encoded& encoded, const SortedString& string,
                                 std::size_t column) {
  if (string.Object != kInFile) return encoded.Objects[string.Object][column];
  return encoded.Strings.BytesInFile(encoded.Strings.slots_[string.Slot], column);
}

void TGLFileRep::Write_Encode(Encoded& encoded) {
  const TGLStrings& strings = encoded.Strings;
  std::size_t room = 0;
  for (const std::uint32_t at : strings.order_) {
    const TGLString* const string = strings.slots_[at].Object.get();
    for (const TGLColumn& column : kTGLColumns) {
      if (string) room += BytesToStore(string->*column.Field, column.Form);
    }
  }
  encoded.Store.reserve(room);  // So that it never moves.
  encoded.Sorted.reserve(strings.order_.size());
  const TGLStringHasher hasher;
  for (const std::uint32_t at : strings.order_) {
    const TGLStrings::Slot& slot = strings.slots_[at];
    const std::uint32_t hash =
        hasher.HashNumber(slot.Object ? slot.Object->Name : strings.TextInFile(slot, 0));
    encoded.Sorted.push_back({hash, at, kInFile});
    if (!slot.Object) continue;
    encoded.Sorted.back().Object = static_cast<std::uint32_t>(encoded.Objects.size());
    auto& fields = encoded.Objects.emplace_back();
    for (std::size_t i = 0; i < kTGLColumns.size(); ++i) {
      const TGLColumn& column = kTGLColumns[i];
      fields[i] = StringView((*slot.Object).*column.Field, column.Form, encoded.Store);
    }
  }
}

void TGLFileRep::Write_SortString(Encoded& encoded) {
  auto& sorted = encoded.Sorted;
  std::sort(sorted.begin(), sorted.end(), [](const SortedString& a, const SortedString& b) {
    return std::pair(a.Hash, a.Slot) < std::pair(b.Hash, b.Slot);
  });
  const auto twice = std::ranges::adjacent_find(sorted, {}, &SortedString::Hash);
  if (twice == sorted.end()) return;
  const auto name = [&](const SortedString& string) {
    return TextFromFileText(FieldOf(encoded, string, 0));
  };
  throw RaisedError(u"TGLFileRep.Write_SortString",
                    u"An error occurred in while hashing the strings.  Error: The names '" +
                        name(twice[0]) + u"' and '" + name(twice[1]) + u"' have one hash, " +
                        TGLStringHasher::HashText(twice->Hash) + u".");
}

/// In the file a name has lost the characters that the code page lacks, so that two names may have
/// become one. Strings that nobody has asked for can be read, as they have been.
void TGLFileRep::Write_CheckNames(const Encoded& encoded) {
  const TGLStrings& strings = encoded.Strings;
  const auto fail = [](const Text& words) {
    throw RaisedError(u"TGLFileRep.Write_CheckNames",
                      u"The file couldn't be loaded again.  Error: " + words);
  };
  const auto quoted = [](FileTextView name) { return u"'" + TextFromFileText(name) + u"'"; };
  KeyIndex seen;
  for (std::uint32_t at = 0; at < encoded.Objects.size(); ++at) {
    const auto& fields = encoded.Objects[at];
    const FileTextView name = fields[0];
    if (name.find_first_not_of(' ') == FileTextView::npos) fail(u"A name is blank.");
    for (std::size_t i = 0; i < kTGLColumns.size(); ++i) {
      if (HoldsTerminator(fields[i], kTGLColumns[i].Form)) {
        fail(u"A 0 character stands in the string " + quoted(name) + u".");
      }
    }
    const std::uint32_t hash = HashOfKey(name);
    const auto isSame = [&](std::uint32_t other) {
      return SameKey(name, encoded.Objects[other][0]);
    };
    const auto isInFile = [&](std::uint32_t slot) {
      const TGLStrings::Slot& other = strings.slots_[slot];
      return !other.Object && SameKey(name, strings.BytesInFile(other, 0));
    };
    if (seen.Find(hash, isSame) != KeyIndex::kNone ||
        strings.index_.Find(hash, isInFile) != KeyIndex::kNone) {
      fail(u"Two strings would have the name " + quoted(name) + u" there.");
    }
    seen.Insert(hash, at);
  }
}

TGLBlockSizes TGLFileRep::Write_CalcOffsetBlocks(const Encoded& encoded) {
  TGLBlockSizes sizes;
  for (std::size_t column = 0; column < kTGLColumns.size(); ++column) {
    const TGLColumn& format = kTGLColumns[column];
    std::int64_t size = 0;
    for (const SortedString& string : encoded.Sorted) {
      const std::size_t bytes = FieldOf(encoded, string, column).size();
      size += static_cast<std::int64_t>(bytes / UnitBytes(format.Form) + 1);
    }
    if (size > kGreatestNumber) {
      throw RaisedError(u"TGLFileRep.Write_CalcOffsetBlocks",
                        u"The strings are too long for one file.");
    }
    sizes.*format.BlockSize = static_cast<std::int32_t>(size);
  }
  return sizes;
}

void TGLFileRep::Write_FileHeader(VBFileStream& stream, std::int32_t count) {
  const TGLHeader header = {kTGLMagic, kTGLMajorVersion, kTGLMinorVersion, count};
  for (const auto field : kTGLHeaderFields) stream.WriteLong(header.*field);
}

void TGLFileRep::Write_FileOffsetBlocks(VBFileStream& stream, const Encoded& encoded) {
  TGLOffsetBlock next;
  for (const SortedString& string : encoded.Sorted) {
    for (std::size_t column = 0; column < kTGLColumns.size(); ++column) {
      const TGLColumn& format = kTGLColumns[column];
      const std::size_t bytes = FieldOf(encoded, string, column).size();
      stream.WriteLong(next.*format.Offset);
      next.*format.Offset += static_cast<std::int32_t>(bytes / UnitBytes(format.Form) + 1);
    }
  }
}

void TGLFileRep::Write_Column(VBFileStream& stream, const Encoded& encoded, std::size_t column) {
  for (const SortedString& string : encoded.Sorted) {
    stream.WriteString(FieldOf(encoded, string, column), kTGLColumns[column].Form);
  }
}

}  // namespace tarvo
