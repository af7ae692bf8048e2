#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "platform/Files.h"
#include "text/Text.h"
#include "tgl/TGLEntries.h"
#include "tgl/TGLFormat.h"
#include "tgl/TGLStrings.h"
#include "tgl/VBFileStream.h"

namespace tarvo {

/// Turns a TGL file into strings and strings into a TGL file. No file is open between calls. Most
/// callers want TGLFile instead.
class TGLFileRep {
 public:
  /// Keeps a reference to `files`.
  explicit TGLFileRep(Files& files) : files_(files) {}

  /// The version that the last ReadFile found; 0 after one that failed. WriteFile ignores both and
  /// writes 1.0.
  std::int32_t MajorVersion() const { return header_.MajorVersion; }
  std::int32_t MinorVersion() const { return header_.MinorVersion; }
  void SetMajorVersion(std::int32_t version) { header_.MajorVersion = version; }
  void SetMinorVersion(std::int32_t version) { header_.MinorVersion = version; }

  /// Reads a whole file; the strings come in file order, keyed by their Names. Offsets, sizes of
  /// blocks, the order of the strings and what stands behind the media block are not looked at, and
  /// strings past the file's end have an empty Data and MediaFilename. Changes nothing on the disk.
  ///
  /// Every failure (no such file, wrong magic or version, a blank Name, Names that differ only in
  /// case, a failure of the disk) is a RaisedError with the Source "TGLFileRep.ReadFile" and a
  /// Description that ends in the underlying words.
  TGLStrings ReadFile(TextView Filename);

  /// Reads every string of a file in file order as it stands, also those with a blank Name or with
  /// one that stands already: for a file that ReadFile refuses. A string past the file's end has
  /// empty fields. Raises what ReadFile raises, but for the Names, and for a file that ends inside
  /// its offset blocks.
  TGLEntries ReadEntries(TextView Filename);

  /// Writes the strings in ascending order of the hashes of their Names; the collection stays as it
  /// was. The file takes its place whole (see FileReplacement), or the old one stands untouched.
  ///
  /// Raises RaisedError with the Source "TGLFile.Update" for a blank name, for no collection or one
  /// without strings, and for a target that exists when `Overwrite` is false; with the Source
  /// "TGLFileRep.Write_SortString" when two Names have one hash; with the Source
  /// "TGLFileRep.Write_CheckNames" for what ReadFile would refuse or misread: Names that are blank
  /// in the file or differ only in case there, and a field with a 0 unit in it; with the Source
  /// "TGLFileRep.Write_CalcOffsetBlocks" when a block passes 2 GiB. What goes wrong on the disk is
  /// thrown as PlatformError.
  void WriteFile(TextView Filename, const TGLStrings* Strings, bool Overwrite = false);

  /// The bytes that WriteFile writes, for whoever changes several files at once. Raises the same
  /// errors, but for those of the target.
  FileText FileBytes(const TGLStrings& Strings);

 private:
  /// A string on its way to the file.
  struct SortedString {
    std::uint32_t Hash;
    std::uint32_t Slot;
    std::uint32_t Object;  ///< Its number among the encoded objects; kInFile for none.
  };
  static constexpr std::uint32_t kInFile = 0xFFFFFFFF;

  /// What is to be written, sorted. Strings that nobody has asked for stay where they stand, in the
  /// file that was loaded: there may be very many of them, and each of them very small.
  struct Encoded {
    const TGLStrings& Strings;
    std::vector<SortedString> Sorted;
    std::vector<std::array<FileTextView, 3>> Objects;  ///< Their fields without terminators.
    FileText Store;                                    ///< Those that are made for the file.
  };

  template <class Step>
  auto Reading(TextView Filename, Step step);
  void Read_FileHeader(VBFileStream& stream);
  void Read_FileOffsetBlocks(VBFileStream& stream);
  std::vector<TGLStrings::FilePlaces> Read_Places(VBFileStream& stream);

  void CheckTarget(TextView Filename, const TGLStrings* Strings, bool Overwrite);
  static void RequireStrings(const TGLStrings& strings);
  void Write_Strings(VBFileStream& stream, const TGLStrings& strings);
  static FileTextView FieldOf(const Encoded& encoded, const SortedString& string,
                              std::size_t column);
  static void Write_Encode(Encoded& encoded);
  static void Write_SortString(Encoded& encoded);
  static void Write_CheckNames(const Encoded& encoded);
  static TGLBlockSizes Write_CalcOffsetBlocks(const Encoded& encoded);
  void Write_FileHeader(VBFileStream& stream, std::int32_t count);
  void Write_FileOffsetBlocks(VBFileStream& stream, const Encoded& encoded);
  void Write_Column(VBFileStream& stream, const Encoded& encoded, std::size_t column);

  Files& files_;
  TGLHeader header_;
};

}  // namespace tarvo
