// The one exception type: what was tried, on which path, and why it failed.
#ifndef TAGRIX_BASE_FAILURE_H
#define TAGRIX_BASE_FAILURE_H

#include <exception>
#include <string>
#include <utility>

namespace tagrix {

enum class Action { Open, Read, Write, Create, Rename, Replace, Delete, CreateFolder, List, Connect, Measure, Tag };

enum class Cause {
  System,      // what the system says
  BadName,     // no file can be called so
  Incomplete,  // not all of it arrived on the disk
  Shrunk,      // the file has become shorter meanwhile
  TooShort,
  TooLarge,
  TextTooLong,
  BadTrackNumber,
  BadHeader,  // of an MPEG frame
  NoFrames,
  NoBitRate,
  PortTooHigh,
  NamesTaken,
};

// Thrown by ports and modules; caught in one place, where a control's event is dispatched. Its words are the
// language's.
class Failure : public std::exception {
 public:
  // `reason`: the system's, in the user's language.
  explicit Failure(Action action, std::wstring path = {}, std::wstring reason = {})
      : action_(action), path_(std::move(path)), reason_(std::move(reason)) {}
  Failure(Action action, std::wstring path, Cause cause) : action_(action), cause_(cause), path_(std::move(path)) {}

  // The same, told of another path.
  Failure About(std::wstring path) const {
    Failure failure = *this;
    failure.path_ = std::move(path);
    return failure;
  }

  Action Tried() const { return action_; }
  Cause Why() const { return cause_; }
  const std::wstring& Path() const { return path_; }
  const std::wstring& Reason() const { return reason_; }
  const char* what() const noexcept override { return "tagrix::Failure"; }

 private:
  Action action_;
  Cause cause_ = Cause::System;
  std::wstring path_, reason_;
};

}  // namespace tagrix

#endif
