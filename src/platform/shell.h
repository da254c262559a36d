// Port to the shell: links, programs and sounds.
#ifndef TAGRIX_PLATFORM_SHELL_H
#define TAGRIX_PLATFORM_SHELL_H

#include <memory>
#include <string>

namespace tagrix {

// A program that was started; the destructor lets go of it without ending it.
class Process {
 public:
  virtual ~Process() = default;
  virtual bool Running() = 0;
};

class Shell {
 public:
  virtual ~Shell() = default;
  // Opens a web or mail link in the user's program for it. False when nothing could open it.
  virtual bool OpenLink(const std::wstring& link) = 0;
  // Starts a program as a normal window and doesn't wait. `program` is its full path (nothing else is started),
  // `commandLine` the whole command line as the program will see it. Null when it could not be started.
  virtual std::unique_ptr<Process> Start(const std::wstring& program, const std::wstring& commandLine) = 0;
  // Opens a file in the user's program for its kind; shows it, selected, in its folder. False when that fails, or the
  // path is not the full path of something that is there.
  virtual bool OpenFile(const std::wstring& path) = 0;
  virtual bool ShowInFolder(const std::wstring& path) = 0;
  // Puts a text on the clipboard.
  virtual void CopyText(const std::wstring& text) = 0;
  // Plays a sound file without waiting; a missing file is ignored.
  virtual void PlaySoundFile(const std::wstring& path) = 0;
};

}  // namespace tagrix

#endif
