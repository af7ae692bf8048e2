#include "tgl/VBFileStream.h"

#include <algorithm>
#include <limits>

#include "text/CodePage.h"
#include "text/RaisedError.h"
#include "tgl/Blanks.h"

namespace tarvo {
namespace {

constexpr std::size_t kLongest = std::numeric_limits<std::int32_t>::max();
constexpr std::size_t kHandOnAt = 256 * 1024;

void AppendUnit(FileText& bytes, char16_t unit) {
  bytes += static_cast<char>(unit & 0xFF);
  bytes += static_cast<char>(unit >> 8);
}

}  // namespace

void VBFileStream::OpenFile(TextView Filename, Access access) {
  if (IsBlank(Filename)) {
    throw RaisedError(u"VBFileStream.CreateFile",
                      u"The Filename parameter is empty.  Please specify a non-empty string when "
                      u"calling CreateFile.");
  }
  Release();
  access_ = access;
  filename_ = Filename;
  try {
    if (access == Access::Read) {
      ReadWholeFile();
    } else {
      replacement_ = files_.Replace(filename_);
    }
  } catch (...) {
    Release();
    throw;
  }
}

void VBFileStream::ReadWholeFile() {
  const std::unique_ptr<FileReader> reader = files_.Open(filename_);
  if (reader->Size() > kLongest) {
    throw RaisedError(u"VBFileStream.CreateFile", u"The file is too large.");
  }
  buffer_.resize(static_cast<std::size_t>(reader->Size()));
  buffer_.resize(reader->ReadAt(0, buffer_));
}

void VBFileStream::CloseFile() {
  if (replacement_) {
    replacement_->Write(buffer_);
    replacement_->Commit();
  }
  Release();
}

void VBFileStream::Release() {
  replacement_.reset();
  buffer_ = {};
  filename_.clear();
  place_ = 0;
  handedOn_ = 0;
}

std::int32_t VBFileStream::FileSize() const {
  return static_cast<std::int32_t>(handedOn_ + buffer_.size());
}

std::int64_t VBFileStream::CurrentFilePos() const {
  if (filename_.empty()) return 0;
  return (access_ == Access::Read ? static_cast<std::int64_t>(place_) : FileSize()) + 1;
}

void VBFileStream::ValidateFileHandle(Access access) const {
  if (filename_.empty() || access != access_) {
    throw RaisedError(u"FileStream.ValidateFileHandle",
                      u"Invalid file handle.  VBFileStream has not been opened!");
  }
}

unsigned VBFileStream::ByteAt(std::size_t at) const {
  return at < buffer_.size() ? static_cast<unsigned char>(buffer_[at]) : 0;
}

void VBFileStream::Skip(std::uint32_t Count) {
  ValidateFileHandle(Access::Read);
  place_ += Count;
}

std::int32_t VBFileStream::ReadLong() {
  ValidateFileHandle(Access::Read);
  std::uint32_t value = 0;
  for (unsigned i = 0; i < 4; ++i) value |= ByteAt(place_ + i) << (8 * i);
  place_ += 4;
  return static_cast<std::int32_t>(value);
}

Text VBFileStream::ReadString(StringType Type, std::int32_t Count) {
  ValidateFileHandle(Access::Read);
  const std::size_t limit = Count > 0 ? static_cast<std::size_t>(Count) : kLongest;
  return Type == StringType::SingleByte ? ReadSingleByteString(limit) : ReadSixteenBitString(limit);
}

Text VBFileStream::ReadSingleByteString(std::size_t limit) {
  const FileTextView rest = FileTextView(buffer_).substr(std::min(place_, buffer_.size()));
  const std::size_t length = std::min({rest.find('\0'), rest.size(), limit});
  place_ += length < limit ? length + 1 : length;
  return TextFromFileText(rest.substr(0, length));
}

Text VBFileStream::ReadSixteenBitString(std::size_t limit) {
  const auto unitAt = [&](std::size_t at) {
    return static_cast<char16_t>(ByteAt(at) | ByteAt(at + 1) << 8);
  };
  std::size_t length = 0;
  while (length < limit && unitAt(place_ + 2 * length) != 0) ++length;
  Text text(length, u'\0');
  for (std::size_t i = 0; i < length; ++i) text[i] = unitAt(place_ + 2 * i);
  place_ += 2 * (length < limit ? length + 1 : length);
  return text;
}

void VBFileStream::RoomFor(std::size_t count) {
  if (count > kLongest - handedOn_ - buffer_.size()) {
    throw RaisedError(u"VBFileStream.Write", u"The file would be too large.");
  }
  if (buffer_.size() < kHandOnAt) return;
  replacement_->Write(buffer_);
  handedOn_ += buffer_.size();
  buffer_.clear();
}

void VBFileStream::WriteLong(std::int32_t Value) {
  ValidateFileHandle(Access::Replace);
  RoomFor(4);
  AppendUnit(buffer_, static_cast<char16_t>(static_cast<std::uint32_t>(Value) & 0xFFFF));
  AppendUnit(buffer_, static_cast<char16_t>(static_cast<std::uint32_t>(Value) >> 16));
}

void VBFileStream::WriteString(TextView Value, StringType Type) {
  ValidateFileHandle(Access::Replace);
  const std::size_t units = Value.size() + 1;
  RoomFor(Type == StringType::SingleByte ? units : 2 * units);
  if (Type == StringType::SingleByte) {
    buffer_ += FileTextFromText(Value);
    buffer_ += '\0';
  } else {
    for (const char16_t unit : Value) AppendUnit(buffer_, unit);
    AppendUnit(buffer_, u'\0');
  }
}

}  // namespace tarvo
