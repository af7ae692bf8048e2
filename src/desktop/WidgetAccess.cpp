#include "desktop/WidgetAccess.h"

#include <QAbstractItemView>
#include <QAccessibleWidget>
#include <QLineEdit>

#include "desktop/ComboBoxView.h"
#include "desktop/FormView.h"

namespace tarvo {
namespace {

QAccessible::Role RoleOf(const FormWidget& form) {
  if (!form.isWindow()) return QAccessible::Client;
  return form.windowType() == Qt::Dialog ? QAccessible::Dialog : QAccessible::Window;
}

/// A drop-down: its list is its first child, the line of an editable one the second.
class DropDownAccess : public QAccessibleWidget {
 public:
  explicit DropDownAccess(DropDown* face) : QAccessibleWidget(face, QAccessible::ComboBox) {}

  QString text(QAccessible::Text kind) const override {
    return kind == QAccessible::Value ? Face().currentText() : QAccessibleWidget::text(kind);
  }

  QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.expandable = true;
    state.expanded = Face().view()->isVisible();
    state.collapsed = !state.expanded;
    state.editable = Face().isEditable();
    return state;
  }

  int childCount() const override { return Face().isEditable() ? 2 : 1; }
  QAccessibleInterface* child(int index) const override {
    if (index == 0) return QAccessible::queryAccessibleInterface(Face().view());
    return index == 1 ? QAccessible::queryAccessibleInterface(Face().lineEdit()) : nullptr;
  }
  int indexOfChild(const QAccessibleInterface* child) const override {
    if (child->object() == Face().view()) return 0;
    return Face().isEditable() && child->object() == Face().lineEdit() ? 1 : -1;
  }
  QAccessibleInterface* childAt(int x, int y) const override {
    QWidget* line = Face().lineEdit();
    const bool hit = line && line->rect().contains(line->mapFromGlobal(QPoint(x, y)));
    return hit ? child(1) : nullptr;
  }

  QStringList actionNames() const override {
    return QStringList{showMenuAction(), pressAction()} + QAccessibleWidget::actionNames();
  }
  void doAction(const QString& action) override {
    if (action != showMenuAction() && action != pressAction()) {
      return QAccessibleWidget::doAction(action);
    }
    if (!Face().isEnabled()) return;
    Face().view()->isVisible() ? Face().hidePopup() : Face().showPopup();
  }

 private:
  DropDown& Face() const { return *static_cast<DropDown*>(widget()); }
};

QAccessibleInterface* MakeAccess(const QString&, QObject* object) {
  if (auto* drop = dynamic_cast<DropDown*>(object)) return new DropDownAccess(drop);
  auto* form = dynamic_cast<FormWidget*>(object);
  return form ? new QAccessibleWidget(form, RoleOf(*form)) : nullptr;
}

}  // namespace

void MakeWidgetsAccessible() {
  QAccessible::installFactory(MakeAccess);  // Qt takes a factory once.
}

}  // namespace tarvo
