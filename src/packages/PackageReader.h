#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "text/RaisedError.h"
#include "text/Text.h"

namespace tarvo {

class FileReader;

/// Reading a package through in pieces, so that its size never matters to memory.

/// Where a body lies in its package; positions count bytes from 0.
struct PackageBody {
  std::uint64_t Start;
  std::uint64_t Length;
};

struct PackageList {
  Text List;                  ///< Each entry followed by CR LF.
  std::uint64_t BodiesStart;  ///< Position of the first body.
};

/// Raised, with "byte N: …", for a package whose pieces can't be found.
RaisedError MalformedPackage(std::uint64_t position, TextView what);

/// Reads the list and nothing behind it but the rest of the block that it ends in. Raises
/// MalformedPackage for a file that has no list, or one of more than 8 MiB.
PackageList ReadPackageList(FileReader& package);

/// Reads on from the first body to the end of the file in blocks of `blockSize` bytes, and gives
/// the bodies of the first `count` entries in order. What stands behind them is read and ignored.
/// `onBlock` is called behind each block. Raises MalformedPackage when a body has no marker.
std::vector<PackageBody> FindBodies(FileReader& package, std::uint64_t bodiesStart,
                                    std::size_t count, std::size_t blockSize,
                                    const std::function<void()>& onBlock);

/// True when `file` holds the marker from that position on, which would cut its body short. Reads
/// it to its end, in blocks.
bool HoldsMarker(FileReader& file, std::uint64_t position = 0);

/// True when the line ends stand around the marker behind a body that belong there. Otherwise it
/// stood within a carried file.
bool IsFramed(FileReader& package, const PackageBody& body);

/// The position behind a body's section.
std::uint64_t SectionEnd(const PackageBody& body);

/// Gives the places of a text in a stream of blocks.
class MarkerSearch {
 public:
  /// Takes the block that follows the one before; calls `found` with the position of each marker,
  /// counted from the first byte of the first block. A marker may lie across blocks.
  void Feed(FileTextView block, const std::function<void(std::uint64_t)>& found);

 private:
  FileText tail_;               ///< The last bytes before the next block, too few for a marker.
  std::uint64_t position_ = 0;  ///< Of the next block.
};

}  // namespace tarvo
