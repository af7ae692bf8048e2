#include "tgl/TGLFileRep.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <string>
#include <utility>

#include "platform/PlatformError.h"
#include "text/RaisedError.h"
#include "text/Utf8.h"
#include "tgl/Blanks.h"
#include "tgl/FileHelpers.h"
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
  try {
    if (IsBlank(Filename)) {
      throw RaisedError(u"TGLFile.Load", u"No source filename specified.  Load failed.");
    }
    if (!helper_FileExists(files_, Filename)) {
      throw RaisedError(u"TGLFile.Load",
                        u"Couldn't find source file '" + Text(Filename) + u".'  Load failed.");
    }
    VBFileStream stream(files_);
    stream.OpenFile(Filename, VBFileStream::Access::Read);
    Read_FileHeader(stream);
    Read_FileOffsetBlocks(stream);
    return step(stream);
  } catch (const RaisedError& error) {
    words = error.Description;
  } catch (const PlatformError& error) {
    words = SystemWords(error.Code);
  }
  header_.MajorVersion = 0;
  header_.MinorVersion = 0;
  throw RaisedError(u"TGLFileRep.ReadFile",
                    u"An error occurred while attempting to read the file.  Error: " + words);
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

std::vector<TGLString> TGLFileRep::ReadEntries(TextView Filename) {
  return Reading(Filename, [&](VBFileStream& stream) {
    if (stream.CurrentFilePos() > std::int64_t{stream.FileSize()} + 1) {
      throw RaisedError(u"TGLFileRep.ReadEntries", u"The file ends inside its offset blocks.");
    }
    std::vector<TGLString> entries(static_cast<std::size_t>(header_.StringCount));
    for (const TGLColumn& column : kTGLColumns) {
      stream.ReadLong();  // The size of the block: nothing depends on it.
      for (TGLString& entry : entries) entry.*column.Field = stream.ReadString(column.Form);
    }
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
  const SortedStrings sorted = Write_SortString(*Strings);
  const Layout layout = Write_CalcOffsetBlocks(*Strings, sorted);
  VBFileStream stream(files_);
  stream.OpenFile(Filename, VBFileStream::Access::Replace);
  Write_FileHeader(stream, Strings->Count());
  Write_FileOffsetBlocks(stream, layout);
  for (std::size_t column = 0; column < kTGLColumns.size(); ++column) {
    stream.WriteLong(layout.BlockSizes.*kTGLColumns[column].BlockSize);
    Write_Column(stream, *Strings, sorted, column);
  }
  stream.CloseFile();
}

void TGLFileRep::CheckTarget(TextView Filename, const TGLStrings* Strings, bool Overwrite) {
  const auto fail = [](const Text& words) { throw RaisedError(u"TGLFile.Update", words); };
  if (IsBlank(Filename)) fail(u"No output filename specified!  Update failed.");
  if (!Strings) fail(u"Invalid parameter.  Parameter 'Strings' is Null.  Update failed.");
  if (Strings->Count() == 0) {
    fail(u"There are no TGL strings in the Strings() collection!  Update failed.");
  }
  if (!Overwrite && helper_FileExists(files_, Filename)) {
    fail(u"Output file '" + Text(Filename) +
         u"' already exists and Overwrite parameter is False.  Update failed.");
  }
}

TGLFileRep::SortedStrings TGLFileRep::Write_SortString(const TGLStrings& strings) {
  struct Hashed {
    std::uint32_t Hash;
    std::uint32_t Slot;
  };
  const TGLStringHasher hasher;
  const auto nameOf = [&](std::uint32_t slot) {
    const TGLStrings::Slot& found = strings.slots_[slot];
    return found.Object ? found.Object->Name : strings.TextInFile(found, 0);
  };
  std::vector<Hashed> hashed;
  hashed.reserve(strings.order_.size());
  for (const std::uint32_t slot : strings.order_) {
    hashed.push_back({hasher.HashNumber(nameOf(slot)), slot});
  }
  std::stable_sort(hashed.begin(), hashed.end(),
                   [](const Hashed& a, const Hashed& b) { return a.Hash < b.Hash; });
  const auto twice =
      std::adjacent_find(hashed.begin(), hashed.end(),
                         [](const Hashed& a, const Hashed& b) { return a.Hash == b.Hash; });
  if (twice != hashed.end()) {
    throw RaisedError(u"TGLFileRep.Write_SortString",
                      u"An error occurred in while hashing the strings.  Error: The names '" +
                          nameOf(twice[0].Slot) + u"' and '" + nameOf(twice[1].Slot) +
                          u"' have one hash, " + TGLStringHasher::HashText(twice->Hash) + u".");
  }
  SortedStrings sorted(hashed.size());
  std::transform(hashed.begin(), hashed.end(), sorted.begin(),
                 [&](const Hashed& item) { return &strings.slots_[item.Slot]; });
  return sorted;
}

TGLFileRep::Layout TGLFileRep::Write_CalcOffsetBlocks(const TGLStrings& strings,
                                                      const SortedStrings& sorted) {
  Layout layout;
  layout.OffsetBlocks.resize(sorted.size());
  for (std::size_t column = 0; column < kTGLColumns.size(); ++column) {
    const TGLColumn& format = kTGLColumns[column];
    std::int64_t offset = 0;
    for (std::size_t i = 0; i < sorted.size(); ++i) {
      const TGLStrings::Slot& slot = *sorted[i];
      const std::size_t length =
          slot.Object ? ((*slot.Object).*format.Field).size()
                      : strings.BytesInFile(slot, column).size() / UnitBytes(format.Form);
      layout.OffsetBlocks[i].*format.Offset = static_cast<std::int32_t>(offset);
      offset += static_cast<std::int64_t>(length) + 1;
      if (offset > kGreatestNumber) {
        throw RaisedError(u"TGLFileRep.Write_CalcOffsetBlocks",
                          u"The strings are too long for one file.");
      }
    }
    layout.BlockSizes.*format.BlockSize = static_cast<std::int32_t>(offset);
  }
  return layout;
}

void TGLFileRep::Write_FileHeader(VBFileStream& stream, std::int32_t count) {
  const TGLHeader header = {kTGLMagic, kTGLMajorVersion, kTGLMinorVersion, count};
  for (const auto field : kTGLHeaderFields) stream.WriteLong(header.*field);
}

void TGLFileRep::Write_FileOffsetBlocks(VBFileStream& stream, const Layout& layout) {
  for (const TGLOffsetBlock& block : layout.OffsetBlocks) {
    for (const TGLColumn& column : kTGLColumns) stream.WriteLong(block.*column.Offset);
  }
}

/// What nobody has asked for goes from file to file as it stands.
void TGLFileRep::Write_Column(VBFileStream& stream, const TGLStrings& strings,
                              const SortedStrings& sorted, std::size_t column) {
  const TGLColumn& format = kTGLColumns[column];
  const FileText terminator(UnitBytes(format.Form), '\0');
  for (const TGLStrings::Slot* slot : sorted) {
    if (slot->Object) {
      stream.WriteString((*slot->Object).*format.Field, format.Form);
    } else {
      stream.WriteBytes(strings.BytesInFile(*slot, column));
      stream.WriteBytes(terminator);
    }
  }
}

}  // namespace tarvo
