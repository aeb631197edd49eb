#include "loggerfiles/ImportHandleAccessible.h"

#include "loggerfiles/ImportHandleWidget.h"

#include <QAccessibleWidget>

namespace quarnel {

namespace {

class HandleInterface : public QAccessibleWidget, public QAccessibleValueInterface {
public:
    explicit HandleInterface(ImportHandleWidget* handle)
        : QAccessibleWidget(handle, QAccessible::Slider)
        , handle_(*handle) {}

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ValueInterface ? static_cast<QAccessibleValueInterface*>(this)
                                                   : QAccessibleWidget::interface_cast(type);
    }
    QString text(QAccessible::Text what) const override {
        return what == QAccessible::Value ? handle_.Time() : QAccessibleWidget::text(what);
    }

    QVariant currentValue() const override { return handle_.Row(); }
    void setCurrentValue(const QVariant& value) override {
        Q_EMIT handle_.Stepped(value.toInt() - handle_.Row());
    }
    QVariant minimumValue() const override { return 0; }
    QVariant maximumValue() const override { return handle_.LastRow(); }
    QVariant minimumStepSize() const override { return 1; }

private:
    ImportHandleWidget& handle_;
};

QAccessibleInterface* MakeInterface(const QString& /*className*/, QObject* object) {
    auto* handle = qobject_cast<ImportHandleWidget*>(object);
    return handle == nullptr ? nullptr : new HandleInterface(handle);
}

} // namespace

void MakeImportHandlesAccessible() {
    [[maybe_unused]] static const bool isInstalled = [] {
        QAccessible::installFactory(MakeInterface);
        return true;
    }();
}

} // namespace quarnel
