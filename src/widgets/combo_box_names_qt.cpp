// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/combo_box_names_qt.h"

#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QAccessibleWidget>
#include <QtWidgets/QComboBox>

namespace kevra {
namespace {

class NamedComboBox : public QAccessibleWidget {
public:
    explicit NamedComboBox(QComboBox &box)
        : QAccessibleWidget(&box, QAccessible::ComboBox)
        , m_box(box)
    {
    }

    [[nodiscard]] QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Value ? m_box.currentText() : QAccessibleWidget::text(kind);
    }

    [[nodiscard]] int childCount() const override { return 1; }
    [[nodiscard]] QAccessibleInterface *child(int index) const override
    {
        return index == 0 ? QAccessible::queryAccessibleInterface(m_box.view()) : nullptr;
    }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface *child) const override
    {
        return child && child->object() == m_box.view() ? 0 : -1;
    }

    [[nodiscard]] QAccessible::State state() const override
    {
        auto state = QAccessibleWidget::state();
        state.expandable = true;
        state.expanded = m_box.view()->isVisible();
        return state;
    }

    [[nodiscard]] QStringList actionNames() const override { return {showMenuAction(), pressAction()}; }
    void doAction(const QString &action) override
    {
        if (!actionNames().contains(action))
            return;
        if (m_box.view()->isVisible())
            m_box.hidePopup();
        else
            m_box.showPopup();
    }

private:
    QComboBox &m_box;
};

QAccessibleInterface *makeInterface(const QString &className, QObject *object)
{
    auto *box = className == QLatin1String("QComboBox") ? qobject_cast<QComboBox *>(object) : nullptr;
    return box && !box->accessibleName().isEmpty() && !box->isEditable() ? new NamedComboBox(*box) : nullptr;
}

} // namespace

void installComboBoxNames()
{
    QAccessible::installFactory(makeInterface);
}

} // namespace kevra
