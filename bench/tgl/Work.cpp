#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include "PortableObject.h"
#include "platform/PlatformError.h"
#include "platform/posix/HostPaths.h"
#include "platform/posix/PosixFiles.h"
#include "text/RaisedError.h"
#include "text/Utf8.h"
#include "tgl/TGLFile.h"

namespace {

using namespace tarvo;

Text GamePath(const char* hostPath) {
  return GamePathOf(std::filesystem::absolute(hostPath).string());
}

void Compile(Files& files, TextView source, TextView target) {
  TGLFile file(files);
  const std::unique_ptr<FileReader> reader = files.Open(source);
  ReadPortableObject(*reader, [&](Message message) {
    file.Strings().Add(std::move(message.Name), std::move(message.Data), std::move(message.Media));
  });
  file.Update(target, true);
}

void Load(TGLFile& file) {
  file.Load();
  std::printf("%d strings\n", file.Strings().Count());
}

/// What a merge does: one entry goes, one comes, one changes, and the file is saved.
void Edit(TGLFile& file) {
  file.Load();
  TGLStrings& strings = file.Strings();
  const Text name = strings.Item(strings.Count() / 2)->Name;
  strings.Remove(name);
  strings.Add(name, u"edited", u"");
  strings.Item(1)->Data += u"!";
  file.Update(file.Filename(), true);
}

bool Run(std::string_view command, int count, char** paths) {
  PosixFiles files(std::filesystem::absolute("journal").string());
  if (command == "compile" && count == 2) {
    Compile(files, GamePath(paths[0]), GamePath(paths[1]));
    return true;
  }
  if (count != 1) return false;
  TGLFile file(files);
  file.SetFilename(GamePath(paths[0]));
  if (command == "load") Load(file);
  if (command == "edit") Edit(file);
  return command == "load" || command == "edit";
}

}  // namespace

int main(int count, char** arguments) {
  try {
    if (count > 1 && Run(arguments[1], count - 2, arguments + 2)) return 0;
    std::fprintf(stderr, "tgl_work compile SOURCE.po TARGET | load FILE | edit FILE\n");
    return 2;
  } catch (const tarvo::RaisedError& error) {
    std::fprintf(stderr, "%s\n", tarvo::Utf8FromText(error.Description).c_str());
  } catch (const tarvo::PlatformError& error) {
    std::fprintf(stderr, "%s\n", tarvo::Utf8FromText(tarvo::Words(error)).c_str());
  }
  return 1;
}
