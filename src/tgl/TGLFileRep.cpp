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
    TGLStrings strings;
    Read_Names(stream, strings);
    for (std::size_t i = 1; i < kTGLColumns.size(); ++i) {
      Read_Column(stream, strings, kTGLColumns[i]);
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
void TGLFileRep::Read_Names(VBFileStream& stream, TGLStrings& strings) {
  stream.ReadLong();  // The size of the block: nothing depends on it.
  for (std::int32_t i = 0; i < header_.StringCount; ++i) {
    strings.Add(stream.ReadString(kTGLColumns[0].Form), u" ", u" ");
  }
}

void TGLFileRep::Read_Column(VBFileStream& stream, TGLStrings& strings, const TGLColumn& column) {
  stream.ReadLong();
  for (std::int32_t i = 1; i <= header_.StringCount; ++i) {
    const TGLStrings::Entry entry = strings.Item(i);
    if (!entry) {
      throw RaisedError(u"TGLFileRep.Read_Column",
                        u"There is no string at the place " + Decimal(i) +
                            u", as names of the file differ only in case.");
    }
    (*entry).*column.Field = stream.ReadString(column.Form);
  }
}

void TGLFileRep::WriteFile(TextView Filename, const TGLStrings* Strings, bool Overwrite) {
  CheckTarget(Filename, Strings, Overwrite);
  const SortedStrings sorted = Write_SortString(*Strings);
  const Layout layout = Write_CalcOffsetBlocks(sorted);
  VBFileStream stream(files_);
  stream.OpenFile(Filename, VBFileStream::Access::Replace);
  Write_FileHeader(stream, Strings->Count());
  Write_FileOffsetBlocks(stream, layout);
  for (const TGLColumn& column : kTGLColumns) {
    stream.WriteLong(layout.BlockSizes.*column.BlockSize);
    Write_Column(stream, sorted, column);
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
    const TGLString* String;
  };
  const TGLStringHasher hasher;
  std::vector<Hashed> hashed;
  hashed.reserve(static_cast<std::size_t>(strings.Count()));
  for (const TGLStrings::Entry& entry : strings) {
    hashed.push_back({hasher.HashNumber(entry->Name), entry.get()});
  }
  std::stable_sort(hashed.begin(), hashed.end(),
                   [](const Hashed& a, const Hashed& b) { return a.Hash < b.Hash; });
  const auto twice =
      std::adjacent_find(hashed.begin(), hashed.end(),
                         [](const Hashed& a, const Hashed& b) { return a.Hash == b.Hash; });
  if (twice != hashed.end()) {
    throw RaisedError(u"TGLFileRep.Write_SortString",
                      u"An error occurred in while hashing the strings.  Error: The names '" +
                          twice[0].String->Name + u"' and '" + twice[1].String->Name +
                          u"' have one hash, " + TGLStringHasher::HashText(twice->Hash) + u".");
  }
  SortedStrings sorted(hashed.size());
  std::transform(hashed.begin(), hashed.end(), sorted.begin(),
                 [](const Hashed& item) { return item.String; });
  return sorted;
}

TGLFileRep::Layout TGLFileRep::Write_CalcOffsetBlocks(const SortedStrings& strings) {
  Layout layout;
  layout.OffsetBlocks.resize(strings.size());
  for (const TGLColumn& column : kTGLColumns) {
    std::int64_t offset = 0;
    for (std::size_t i = 0; i < strings.size(); ++i) {
      layout.OffsetBlocks[i].*column.Offset = static_cast<std::int32_t>(offset);
      offset += static_cast<std::int64_t>((strings[i]->*column.Field).size()) + 1;
      if (offset > kGreatestNumber) {
        throw RaisedError(u"TGLFileRep.Write_CalcOffsetBlocks",
                          u"The strings are too long for one file.");
      }
    }
    layout.BlockSizes.*column.BlockSize = static_cast<std::int32_t>(offset);
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

void TGLFileRep::Write_Column(VBFileStream& stream, const SortedStrings& strings,
                              const TGLColumn& column) {
  for (const TGLString* string : strings) stream.WriteString(string->*column.Field, column.Form);
}

}  // namespace tarvo
