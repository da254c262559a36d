// The window that downloads the installer of a new version ("O-Updater").
#ifndef TAGRIX_UPDATE_UPDATE_WINDOW_H
#define TAGRIX_UPDATE_UPDATE_WINDOW_H

#include <cstdint>

#include "core/context.h"
#include "forms/buttons.h"
#include "forms/form.h"
#include "forms/text_controls.h"

namespace tagrix {

struct Upd {
  Label file_lbl{"file_lbl", LabelStyle::Literal};
  Label progress_lbl{"progress_lbl", LabelStyle::Literal}, speed_lbl{"speed_lbl", LabelStyle::Literal};
  ProgressBox download_bar{"download_bar"};
  Button cancel_btn{"cancel_btn"};
  Form form{"upd"};
};

enum class DownloadResult { Complete, Failed, Cancelled };

// Downloads a file while the window shows how far it is; returns when the window has closed.
DownloadResult DownloadInWindow(Context& context, const FtpRequest& request);

}  // namespace tagrix

#endif
