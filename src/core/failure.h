// The one exception type: what was tried, on which path, and the system's reason.
#ifndef TAGRIX_CORE_FAILURE_H
#define TAGRIX_CORE_FAILURE_H

#include <exception>
#include <string>
#include <utility>

namespace tagrix {

// Thrown by ports and modules; caught in one place, where a control's event is dispatched (core/dispatch.h).
class Failure : public std::exception {
 public:
  explicit Failure(std::wstring operation, std::wstring path = {}, std::wstring reason = {})
      : operation_(std::move(operation)), path_(std::move(path)), reason_(std::move(reason)) {}

  const std::wstring& Operation() const { return operation_; }
  const std::wstring& Path() const { return path_; }
  const std::wstring& Reason() const { return reason_; }

  // One text for the user: the operation, the path and the reason, those that are known, one a line.
  std::wstring Description() const {
    std::wstring text = operation_;
    for (const std::wstring* part : {&path_, &reason_}) {
      if (!part->empty()) text += L"\r\n" + *part;
    }
    return text;
  }
  const char* what() const noexcept override { return "tagrix::Failure"; }

 private:
  std::wstring operation_, path_, reason_;
};

}  // namespace tagrix

#endif
