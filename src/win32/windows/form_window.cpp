#include "win32/windows/form_window.h"

#include <shellapi.h>
#include <windowsx.h>

#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

#include "base/letter_case.h"
#include "win32/windows/form_keys.h"
#include "win32/windows/gdi.h"

namespace tagrix {
namespace {

constexpr const wchar_t* kClass = L"TagrixForm";
constexpr int kIcon = 1;  // in the resources

DWORD Style(HWND owner) {
  return owner == nullptr ? WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN
                          : WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_CLIPCHILDREN;
}

HICON ProgramIcon(int metric) {
  const int side = GetSystemMetrics(metric);
  return static_cast<HICON>(
      LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(kIcon), IMAGE_ICON, side, side, LR_SHARED));
}

void RegisterForms(WNDPROC procedure) {
  WNDCLASSEXW kind{};
  kind.cbSize = sizeof kind;
  kind.lpfnWndProc = procedure;
  kind.hInstance = GetModuleHandleW(nullptr);
  kind.hIcon = ProgramIcon(SM_CXICON);
  kind.hIconSm = ProgramIcon(SM_CXSMICON);
  kind.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  kind.lpszClassName = kClass;
  RegisterClassExW(&kind);  // from the second form on it is there already
}

std::vector<std::wstring> PathsIn(HDROP drop) {
  std::vector<std::wstring> paths(DragQueryFileW(drop, ~0U, nullptr, 0));
  for (UINT i = 0; std::wstring & path : paths) {
    path.resize(DragQueryFileW(drop, i, nullptr, 0));
    DragQueryFileW(drop, i++, path.data(), static_cast<UINT>(path.size()) + 1);
  }
  DragFinish(drop);
  return paths;
}

LONG Width(const RECT& area) { return area.right - area.left; }
LONG Height(const RECT& area) { return area.bottom - area.top; }

}  // namespace

FormWindow::FormWindow(Form& form, HWND owner) : form_(form), owner_(owner), caption_(form.caption) {
  RegisterForms(Procedure);
  RECT at{CW_USEDEFAULT, CW_USEDEFAULT, 0, 0};
  if (owner != nullptr) GetWindowRect(owner, &at);  // on the same monitor
  window_ = CreateWindowExW(form.dropped ? WS_EX_ACCEPTFILES : 0, kClass, caption_.c_str(), Style(owner), at.left,
                            at.top, 0, 0, owner, nullptr, GetModuleHandleW(nullptr), nullptr);
  SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  content_ = std::make_unique<FormContent>(window_, form, static_cast<int>(GetDpiForWindow(window_)));
  if (content_->Colours().dark) ApplyToTitleBar(window_, content_->Colours());
  PlaceAtStart();
}

FormWindow::~FormWindow() {
  KeepSize();
  if (owner_ != nullptr) EnableWindow(owner_, TRUE);
  ShowWindow(window_, SW_HIDE);
  content_.reset();
  SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
  DestroyWindow(window_);
}

// For the next time.
void FormWindow::KeepSize() {
  WINDOWPLACEMENT placement{};
  placement.length = sizeof placement;
  if (!GetWindowPlacement(window_, &placement)) return;
  RECT none{};
  const auto style = static_cast<DWORD>(GetWindowLongPtrW(window_, GWL_STYLE));
  AdjustWindowRectExForDpi(&none, style, FALSE, 0, static_cast<UINT>(content_->Dpi()));
  const auto units = [this](LONG pixels) { return MulDiv(static_cast<int>(pixels), 96, content_->Dpi()); };
  form_.startSize = {units(Width(placement.rcNormalPosition) - Width(none)),
                     units(Height(placement.rcNormalPosition) - Height(none))};
  form_.maximised = placement.showCmd == SW_SHOWMAXIMIZED ||
                    (placement.showCmd == SW_SHOWMINIMIZED && (placement.flags & WPF_RESTORETOMAXIMIZED) != 0);
}

FormWindow* FormWindow::Around(HWND window) {
  const HWND root = GetAncestor(window, GA_ROOT);
  const LONG_PTR procedure = reinterpret_cast<LONG_PTR>(static_cast<WNDPROC>(Procedure));
  return GetWindowLongPtrW(root, GWLP_WNDPROC) == procedure ? Of(root) : nullptr;
}

void FormWindow::Show() {
  if (owner_ != nullptr) EnableWindow(owner_, FALSE);
  Fill();
  ShowWindow(window_, owner_ != nullptr ? SW_SHOW : form_.maximised ? SW_SHOWMAXIMIZED : SW_SHOWDEFAULT);
  content_->Focus().SetTo(form_.firstFocus);
  UpdateWindow(window_);
}

void FormWindow::Fill() {
  filled_ = true;
  Place();
}

void FormWindow::Place() {
  if (filled_ && !IsIconic(window_)) content_->Place();
}

SIZE FormWindow::WindowSize(Size client) const {
  RECT area{0, 0, client.width, client.height};
  const auto style = static_cast<DWORD>(GetWindowLongPtrW(window_, GWL_STYLE));
  AdjustWindowRectExForDpi(&area, style, FALSE, 0, static_cast<UINT>(content_->Dpi()));
  return {Width(area), Height(area)};
}

RECT FormWindow::WorkArea() const {
  MONITORINFO monitor{};
  monitor.cbSize = sizeof monitor;
  GetMonitorInfoW(MonitorFromWindow(owner_ != nullptr ? owner_ : window_, MONITOR_DEFAULTTONEAREST), &monitor);
  return monitor.rcWork;
}

void FormWindow::PlaceAtStart() {
  const RECT work = WorkArea();
  RECT around = work;
  if (owner_ != nullptr && !IsIconic(owner_)) GetWindowRect(owner_, &around);
  const Size least = content_->LeastSize();
  const Size start{content_->Pixels(form_.startSize.width), content_->Pixels(form_.startSize.height)};
  SIZE size = WindowSize({std::max(start.width, least.width), std::max(start.height, least.height)});
  size = {std::min(size.cx, Width(work)), std::min(size.cy, Height(work))};
  // Over the middle of its owner, or of the monitor, and wholly on it.
  const LONG x = std::clamp(around.left + (Width(around) - size.cx) / 2, work.left, work.right - size.cx);
  const LONG y = std::clamp(around.top + (Height(around) - size.cy) / 2, work.top, work.bottom - size.cy);
  SetWindowPos(window_, nullptr, x, y, size.cx, size.cy, SWP_NOZORDER | SWP_NOACTIVATE);
}

void FormWindow::GrowToLeast() {
  if (IsIconic(window_) || IsZoomed(window_)) return;
  RECT now;
  GetWindowRect(window_, &now);
  const RECT work = WorkArea();
  const SIZE least = WindowSize(content_->LeastSize());
  const LONG width = std::max(Width(now), std::min(least.cx, Width(work)));
  const LONG height = std::max(Height(now), std::min(least.cy, Height(work)));
  if (width == Width(now) && height == Height(now)) return;
  SetWindowPos(window_, nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void FormWindow::Limit(MINMAXINFO& limits) const {
  const RECT work = WorkArea();
  const SIZE least = WindowSize(content_->LeastSize());
  limits.ptMinTrackSize = {std::min(least.cx, Width(work)), std::min(least.cy, Height(work))};
}

void FormWindow::Flush() {
  if (caption_ != form_.caption) {
    caption_ = form_.caption;
    SetWindowTextW(window_, caption_.c_str());
  }
  if (form_.progress != nullptr) taskbar_.Show(window_, form_.progress->Percent());
  if (content_->Flush()) {
    GrowToLeast();
    Place();
  }
  content_->Focus().GiveWanted();
}

void FormWindow::NewFonts(int dpi) {
  content_->SetFonts(dpi);
  GrowToLeast();
  Place();
  RedrawWindow(window_, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

void FormWindow::Paint() {
  PAINTSTRUCT paint;
  const HDC dc = BeginPaint(window_, &paint);
  if (!IsRectEmpty(&paint.rcPaint)) content_->Paint(Buffered(dc, paint.rcPaint).Dc(), paint.rcPaint);
  EndPaint(window_, &paint);
}

void FormWindow::NewPalette() {
  content_->SetPalette();
  ApplyToTitleBar(window_, content_->Colours());
  content_->Repaint();
}

HWND FormWindow::Find(ATOM name) {
  char text[256] = "";
  if (GlobalGetAtomNameA(name, text, static_cast<int>(std::size(text))) == 0) return nullptr;
  return form_.name == text ? window_ : content_->Find(text);
}

bool FormWindow::TakeKey(MSG& message) {
  if (IsHeld(message)) return true;
  if (message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST) content_->TouchAll();
  // Without Alt a letter is no access key here: a stray one must not start anything.
  if (message.message == WM_CHAR && owner_ == nullptr) return false;
  if (message.message == WM_SYSCHAR &&
      content_->Focus().FollowAccessKey(ToLower(static_cast<wchar_t>(message.wParam)))) {
    return true;
  }
  if (message.message == WM_KEYDOWN && FollowFormKey(message.wParam)) return true;
  if (message.message == WM_KEYDOWN && (message.wParam == VK_RETURN || message.wParam == VK_ESCAPE)) {
    if (EnterOrEsc(message.wParam)) return true;
  }
  return IsDialogMessageW(window_, &message) != FALSE;
}

bool FormWindow::FollowFormKey(WPARAM key) {
  if (!form_.keyPressed) return false;
  const auto meant = FormKeyOf(key);
  return meant && form_.keyPressed(meant->key, meant->page);
}

bool FormWindow::EnterOrEsc(WPARAM key) {
  const HWND focus = GetFocus();
  Binding* binding = content_->BindingOf(focus);
  if (binding == nullptr) binding = content_->BindingOf(GetParent(focus));  // the edit field of a combo box
  if (binding != nullptr && binding->TakeKey(key)) return true;
  if (key == VK_RETURN) {
    if (form_.defaultButton != nullptr) content_->Press(*form_.defaultButton);
  } else if (owner_ != nullptr) {
    form_.RequestClose();
  } else if (form_.escaped) {
    form_.escaped();
  }
  return true;
}

void FormWindow::Rethrow() {
  if (failure_) std::rethrow_exception(std::exchange(failure_, nullptr));
}

LRESULT CALLBACK FormWindow::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  FormWindow* self = Of(window);
  if (self == nullptr || !self->content_) return DefWindowProcW(window, message, wParam, lParam);
  LRESULT result = 0;
  try {
    result = self->Handle(message, wParam, lParam);
  } catch (...) {
    self->failure_ = std::current_exception();
  }
  // What was sent, not posted, leaves the loop asleep.
  if (self->Closing() && !std::exchange(self->woken_, true)) PostMessageW(window, WM_NULL, 0, 0);
  return result;
}

LRESULT FormWindow::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case FormContent::kFlush:
    case WM_TIMER:
      Flush();
      return 0;
    case WM_COMMAND:
      if (Binding* binding = content_->BindingOf(reinterpret_cast<HWND>(lParam))) binding->Command(HIWORD(wParam));
      content_->FocusChanged(reinterpret_cast<HWND>(lParam));
      return 0;
    case WM_NOTIFY:
      return Notify(*reinterpret_cast<NMHDR*>(lParam));
    case WM_DRAWITEM: {
      const auto& item = *reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
      if (Binding* binding = content_->BindingOf(item.hwndItem)) binding->Draw(item);
      return TRUE;
    }
    case kFailed:
      failure_ = *reinterpret_cast<const std::exception_ptr*>(lParam);
      return 0;
    case kFindControl:
      return reinterpret_cast<LRESULT>(Find(static_cast<ATOM>(wParam)));
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORLISTBOX:
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLORBTN: {
      const auto dc = reinterpret_cast<HDC>(wParam);
      const bool field = message == WM_CTLCOLOREDIT || message == WM_CTLCOLORLISTBOX;
      const HBRUSH brush = field ? content_->ColourField(dc) : content_->ColourOnGround(dc);
      if (brush == nullptr) break;
      return reinterpret_cast<LRESULT>(brush);
    }
    case WM_GETOBJECT: {
      constexpr LONG kAutomationRoot = -25;  // UiaRootObjectId
      const auto object = static_cast<LONG>(lParam);
      if (object == OBJID_CLIENT || object == kAutomationRoot) content_->Describe();
      break;
    }
    case WM_PAINT:
      Paint();
      return 0;
    case WM_ERASEBKGND:
      return TRUE;  // drawn over wholly
    case WM_UPDATEUISTATE:
      InvalidateRect(window_, nullptr, FALSE);
      break;
    case WM_SETCURSOR:
      content_->OfferTooltip(reinterpret_cast<HWND>(wParam));
      break;
    case WM_MOUSEMOVE:
    case WM_LBUTTONDOWN:
    case WM_RBUTTONDOWN:
      if (content_->PointerCame(message, wParam, {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)})) return 0;
      break;
    case kHideTooltip:
      content_->HideTooltip();
      return 0;
    case WM_SIZE:
      Place();
      return 0;
    case WM_GETMINMAXINFO:
      Limit(*reinterpret_cast<MINMAXINFO*>(lParam));
      return 0;
    case WM_DPICHANGED: {
      const RECT& suggested = *reinterpret_cast<const RECT*>(lParam);
      NewFonts(LOWORD(wParam));
      SetWindowPos(window_, nullptr, suggested.left, suggested.top, Width(suggested), Height(suggested),
                   SWP_NOZORDER | SWP_NOACTIVATE);
      return 0;
    }
    case WM_SETTINGCHANGE:
      if (wParam == SPI_SETNONCLIENTMETRICS || wParam == SPI_SETHIGHCONTRAST) NewFonts(content_->Dpi());
      NewPalette();  // light or dark comes without a number
      break;
    case WM_SYSCOLORCHANGE:
      content_->ForwardToAll(message);
      NewPalette();
      break;
    case WM_ACTIVATE:
      if (LOWORD(wParam) == WA_INACTIVE) content_->Focus().Leave();
      break;
    case WM_SETFOCUS:
      content_->Focus().Return();
      return 0;
    case WM_CLOSE:
      if (IsWindowEnabled(window_)) form_.RequestClose();
      return 0;
    case WM_DROPFILES: {
      std::vector<std::wstring> paths = PathsIn(reinterpret_cast<HDROP>(wParam));
      if (IsWindowEnabled(window_) && form_.dropped) form_.dropped(std::move(paths));
      return 0;
    }
    case WM_QUERYENDSESSION:
      return TRUE;
    default:
      break;
  }
  return DefWindowProcW(window_, message, wParam, lParam);
}

LRESULT FormWindow::Notify(NMHDR& note) {
  if (note.code == TTN_GETDISPINFOW) {
    tooltip_ = content_->TooltipOf(note.idFrom);
    reinterpret_cast<NMTTDISPINFOW&>(note).lpszText = tooltip_.data();
    return 0;
  }
  if (note.code == NM_CUSTOMDRAW) {
    if (const auto drawn = content_->DrawFace(reinterpret_cast<const NMCUSTOMDRAW&>(note))) return *drawn;
  }
  if (note.code == NM_SETFOCUS || note.code == NM_KILLFOCUS) content_->FocusChanged(note.hwndFrom);
  Binding* binding = content_->BindingOf(note.hwndFrom);
  return binding == nullptr ? 0 : binding->Notify(note).value_or(0);
}

}  // namespace tagrix
