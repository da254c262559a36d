// The shell of Windows: links, programs and sounds.
#ifndef TAGRIX_WIN32_PORTS_SHELL_H
#define TAGRIX_WIN32_PORTS_SHELL_H

#include <memory>
#include <string>

#include "platform/shell.h"

namespace tagrix {

class WinShell : public Shell {
 public:
  bool OpenLink(const std::wstring& link) override;
  // A program that asks for an administrator's rights is started by the shell, which asks the user for them.
  std::unique_ptr<Process> Start(const std::wstring& program, const std::wstring& commandLine) override;
  bool OpenFile(const std::wstring& path) override;
  bool ShowInFolder(const std::wstring& path) override;
  void CopyText(const std::wstring& text) override;
  void PlaySoundFile(const std::wstring& path) override;
};

}  // namespace tagrix

#endif
