#include "forms/spoken_names.h"

#include "forms/buttons.h"
#include "forms/captions.h"
#include "forms/lists.h"
#include "forms/picture.h"
#include "forms/text_controls.h"

namespace tagrix {
namespace {

class Names : public ControlVisitor {
 public:
  std::vector<SpokenName> found;

  void Walk(const Node& node, const std::wstring& title) {
    title_ = title;
    if (node.control != nullptr) node.control->Accept(*this);
    const std::wstring inner = title_;
    for (const Node& child : node.children) Walk(child, inner);
  }

  void Visit(Frame& frame) override {
    if (!frame.Text().empty()) title_ = WithoutAccessKeys(frame.Text());
    label_ = nullptr;
  }
  void Visit(Label& label) override { label_ = label.Style() == LabelStyle::Caption ? &label : nullptr; }
  void Visit(Button& button) override {
    Take(button, button.Text().empty() ? button.Tooltip() : WithoutAccessKeys(button.Text()));
  }
  void Visit(CheckBox& box) override { Take(box, WithoutAccessKeys(box.Text())); }
  void Visit(OptionButton& option) override { Take(option, WithoutAccessKeys(option.Text())); }
  void Visit(TextBox& box) override { TakeAround(box); }
  void Visit(ListBox& list) override { TakeAround(list); }
  void Visit(ComboBox& combo) override { TakeAround(combo); }
  void Visit(ProgressBox& progress) override { TakeAround(progress); }
  void Visit(TreeBox& tree) override { TakeAround(tree); }
  void Visit(Picture& picture) override { TakeAround(picture); }

 private:
  void Take(const Control& control, std::wstring name, bool fromLabel = false) {
    if (!control.SpokenName().empty()) name = control.SpokenName();
    found.push_back({&control, std::move(name), fromLabel && control.SpokenName().empty()});
    label_ = nullptr;
  }
  void TakeAround(const Control& control) {
    const bool labelled = label_ != nullptr;
    Take(control, labelled ? WithoutAccessKeys(label_->Text()) : title_, labelled);
  }

  std::wstring title_;
  const Label* label_ = nullptr;
};

}  // namespace

std::vector<SpokenName> SpokenNames(const Node& layout) {
  Names names;
  names.Walk(layout, {});
  return std::move(names.found);
}

}  // namespace tagrix
