#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "text/Text.h"
#include "tgl/FileStrings.h"
#include "tgl/TGLString.h"

namespace tarvo {

/// The layout of a TGL file: a header, one offset block a string, and three blocks of strings, each
/// with its size before it. The lists below are the only place that knows the order of the fields;
/// reading, writing and the reckoning of offsets all go by them.

struct TGLHeader {
  std::int32_t Magic = 0;
  std::int32_t MajorVersion = 0;
  std::int32_t MinorVersion = 0;
  std::int32_t StringCount = 0;
};

constexpr std::int32_t kTGLMagic = 5889;
constexpr std::int32_t kTGLMajorVersion = 1;
constexpr std::int32_t kTGLMinorVersion = 0;

constexpr std::array kTGLHeaderFields = {&TGLHeader::Magic, &TGLHeader::MajorVersion,
                                         &TGLHeader::MinorVersion, &TGLHeader::StringCount};

/// Where the fields of a string begin, in characters from the start of their block: bytes in the
/// name and media blocks, 16-bit units in the data block.
struct TGLOffsetBlock {
  std::int32_t NameOffset = 0;
  std::int32_t DataOffset = 0;
  std::int32_t MediaOffset = 0;
};

/// The sizes of the three blocks, counted like the offsets, terminators included.
struct TGLBlockSizes {
  std::int32_t NameBlockSize = 0;
  std::int32_t DataBlockSize = 0;
  std::int32_t MediaBlockSize = 0;
};

/// One field of the strings: where it stands in memory and in its offset block, where the size of
/// its block is kept, and how its texts stand in the file.
struct TGLColumn {
  Text TGLString::*Field;
  std::int32_t TGLOffsetBlock::*Offset;
  std::int32_t TGLBlockSizes::*BlockSize;
  StringType Form;
};

/// The columns in the order of an offset block, which is the order of the blocks as well.
constexpr std::array kTGLColumns = {
    TGLColumn{&TGLString::Name, &TGLOffsetBlock::NameOffset, &TGLBlockSizes::NameBlockSize,
              StringType::SingleByte},
    TGLColumn{&TGLString::Data, &TGLOffsetBlock::DataOffset, &TGLBlockSizes::DataBlockSize,
              StringType::SixteenBit},
    TGLColumn{&TGLString::MediaFilename, &TGLOffsetBlock::MediaOffset,
              &TGLBlockSizes::MediaBlockSize, StringType::SingleByte},
};

constexpr std::size_t kTGLHeaderBytes = sizeof(std::int32_t) * kTGLHeaderFields.size();
constexpr std::size_t kTGLOffsetBlockBytes = sizeof(std::int32_t) * kTGLColumns.size();

}  // namespace tarvo
