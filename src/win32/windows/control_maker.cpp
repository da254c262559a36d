#include "win32/windows/control_maker.h"

#include "win32/windows/button_windows.h"
#include "win32/windows/list_window.h"
#include "win32/windows/picture_window.h"
#include "win32/windows/text_windows.h"
#include "win32/windows/tree_window.h"

namespace tagrix {
namespace {

class Maker : public ControlVisitor {
 public:
  Maker(const Site& site, const Form& form) : site_(site), form_(form) {}

  void Visit(Button& button) override { Make<PushButton>(button, &button == form_.defaultButton); }
  void Visit(CheckBox& box) override { Make<TickBox>(box); }
  void Visit(OptionButton& option) override { Make<RadioButton>(option); }
  void Visit(Label&) override {}
  void Visit(TextBox& box) override { Make<EditField>(box); }
  void Visit(ListBox& list) override { Make<ListWindow>(list); }
  void Visit(ComboBox& combo) override { Make<DropDown>(combo); }
  void Visit(Frame&) override {}
  void Visit(ProgressBox&) override {}
  void Visit(TreeBox& tree) override { Make<TreeWindow>(tree); }
  void Visit(Picture& picture) override { Make<PictureWindow>(picture); }

  std::unique_ptr<Binding> made;

 private:
  template <typename Kind, typename... Arguments>
  void Make(Arguments&&... arguments) {
    made = std::make_unique<Kind>(site_, arguments...);
  }

  const Site& site_;
  const Form& form_;
};

}  // namespace

std::unique_ptr<Binding> MakeBinding(const Site& site, const Form& form, Control& control) {
  Maker maker(site, form);
  control.Accept(maker);
  return std::move(maker.made);
}

}  // namespace tagrix
