#include "desktop/RowPanelAccess.h"

#include <QAccessibleWidget>
#include <QPointer>
#include <algorithm>
#include <map>

#include "desktop/RowPanelView.h"
#include "desktop/Skin.h"

namespace tarvo {
namespace {

using Picture = RowPanel::Picture;
using Place = RowPanel::Place;

/// One row. It stays valid as long as there is a row of its number.
class RowAccess : public QAccessibleInterface, public QAccessibleActionInterface {
 public:
  RowAccess(RowPanelFace& face, Place place) : face_(&face), place_(place) {}

  bool isValid() const override { return Row() != nullptr; }
  QObject* object() const override { return nullptr; }
  QAccessibleInterface* parent() const override {
    return QAccessible::queryAccessibleInterface(face_);
  }
  QAccessibleInterface* child(int) const override { return nullptr; }
  QAccessibleInterface* childAt(int, int) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface*) const override { return -1; }
  QAccessible::Role role() const override { return QAccessible::TreeItem; }

  QString text(QAccessible::Text kind) const override {
    if (!isValid()) return {};
    if (kind == QAccessible::Name) return Printable(Row()->Caption);
    return kind == QAccessible::Description ? Printable(face_->Model()->WordsOn(place_))
                                            : QString();
  }
  void setText(QAccessible::Text, const QString&) override {}

  QRect rect() const override {
    if (!isValid()) return {};
    const QRect area = PixelArea(Row()->PictureArea);
    return {face_->mapToGlobal(area.topLeft()), area.size()};
  }

  QAccessible::State state() const override {
    QAccessible::State state;
    state.invalid = !isValid();
    if (state.invalid) return state;
    const Picture shown = face_->Model()->PictureOf(place_);
    state.focusable = true;
    state.focused = face_->hasFocus() && face_->Current() == place_;
    state.expandable = place_.Kind == RowPanel::Family::Menu;
    state.expanded = shown == Picture::MenuOpen;
    state.collapsed = shown == Picture::MenuClosed;
    state.selectable = place_.Kind == RowPanel::Family::Ship;
    state.selected = shown == Picture::ShipSelected;
    state.offscreen = face_->visibleRegion().intersected(PixelArea(Row()->PictureArea)).isEmpty();
    return state;
  }

  void* interface_cast(QAccessible::InterfaceType type) override {
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                : nullptr;
  }
  QStringList actionNames() const override { return {pressAction()}; }
  void doAction(const QString& action) override {
    if (action == pressAction() && isValid()) face_->Model()->Click(place_, true);
  }
  QStringList keyBindingsForAction(const QString&) const override { return {}; }

 private:
  const RowPanel::Row* Row() const {
    return face_ && face_->Model() ? face_->Model()->Seen(place_) : nullptr;
  }

  QPointer<RowPanelFace> face_;
  Place place_;
};

/// The panel. What it tells of a row lives as long as it does.
class PanelAccess : public QAccessibleWidget {
 public:
  explicit PanelAccess(RowPanelFace* face) : QAccessibleWidget(face, QAccessible::Tree) {}
  ~PanelAccess() override {
    for (const auto& [key, id] : rows_) QAccessible::deleteAccessibleInterface(id);
  }

  int childCount() const override { return static_cast<int>(Order().size()); }

  QAccessibleInterface* child(int index) const override {
    const std::vector<Place> order = Order();
    if (index < 0 || index >= std::ssize(order)) return nullptr;
    return RowAt(order[static_cast<std::size_t>(index)]);
  }

  QAccessibleInterface* childAt(int x, int y) const override {
    for (const Place place : Order()) {
      QAccessibleInterface* row = RowAt(place);
      if (row->rect().contains(x, y)) return row;
    }
    return nullptr;
  }

  int indexOfChild(const QAccessibleInterface* row) const override {
    const std::vector<Place> order = Order();
    const auto found = std::find_if(order.begin(), order.end(),
                                    [&](const Place& place) { return RowAt(place) == row; });
    return found == order.end() ? -1 : static_cast<int>(found - order.begin());
  }

  QAccessibleInterface* focusChild() const override {
    return Face().hasFocus() ? RowAt(Face().Current()) : nullptr;
  }

 private:
  RowPanelFace& Face() const { return *static_cast<RowPanelFace*>(widget()); }

  std::vector<Place> Order() const {
    return Face().Model() ? Face().Model()->InOrder() : std::vector<Place>();
  }

  QAccessibleInterface* RowAt(Place place) const {
    const auto [at, isNew] = rows_.try_emplace({place.Kind, place.Index}, 0);
    if (isNew) at->second = QAccessible::registerAccessibleInterface(new RowAccess(Face(), place));
    return QAccessible::accessibleInterface(at->second);
  }

  mutable std::map<std::pair<RowPanel::Family, std::size_t>, QAccessible::Id> rows_;
};

QAccessibleInterface* MakeAccess(const QString&, QObject* object) {
  auto* face = dynamic_cast<RowPanelFace*>(object);
  return face ? new PanelAccess(face) : nullptr;
}

}  // namespace

void MakeRowPanelsAccessible() {
  QAccessible::installFactory(MakeAccess);  // Qt takes a factory once.
}

void TellFocusedRow(RowPanelFace& face) {
  if (!QAccessible::isActive() || !face.Model()) return;
  const std::vector<Place> order = face.Model()->InOrder();
  const auto at = std::find(order.begin(), order.end(), face.Current());
  if (at == order.end()) return;
  QAccessibleEvent event(&face, QAccessible::Focus);
  event.setChild(static_cast<int>(at - order.begin()));
  QAccessible::updateAccessibility(&event);
}

}  // namespace tarvo
