#include "tgl/TGLFile.h"

#include "platform/PlatformError.h"
#include "text/Paths.h"
#include "text/RaisedError.h"
#include "tgl/Blanks.h"
#include "tgl/FileHelpers.h"
#include "tgl/TGLFileRep.h"

namespace tarvo {

void TGLFile::SetFilename(TextView Filename) {
  filename_ = TrimBlanks(Filename);
}

void TGLFile::Load() {
  strings_ = TGLFileRep(files_).ReadFile(filename_);
}

FileText TGLFile::Bytes() const {
  return TGLFileRep(files_).FileBytes(strings_);
}

void TGLFile::Update(TextView OutputFilename, bool Overwrite) {
  try {
    TGLFileRep(files_).WriteFile(OutputFilename, &strings_, Overwrite);
  } catch (const PlatformError& error) {
    // The temporary file that failed to take the target's place has no name that helps the user.
    throw RaisedError(u"helper_CopyFile",
                      u"Failed to copy file 'the new " + BareName(OutputFilename) + u"' to '" +
                          Text(OutputFilename) + u"'\r\nReason: " + SystemWords(error.Code))
        .Because(error.Code);
  }
}

}  // namespace tarvo
