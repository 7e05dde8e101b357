#pragma once

#include <QObject>
#include <QPointer>
#include <QString>
#include <memory>

class QLabel;

namespace kzq {

class MenuItemDelegate;
class MenuItemView;

/// One entry of the menu. Main thread.
class MenuItem : public QObject {
    Q_OBJECT

  public:
    static std::unique_ptr<MenuItem> item();
    ~MenuItem() override;

    /// 200 × 36; owned by this until it gets a parent. Null once that parent is destroyed.
    MenuItemView* view() const;

    /// A null text counts as empty.
    void setTitle(const QString& title);
    QString title() const;

    /// Whether the entry is highlighted, by the pointer or by the keys. Assistive technology is notified.
    void setHovered(bool hovered);
    bool hovered() const { return hovered_; }

    /// Not owned: a delegate destroyed first sets nullptr.
    void setDelegate(MenuItemDelegate* delegate) { delegate_ = delegate; }
    MenuItemDelegate* delegate() const { return delegate_; }

  Q_SIGNALS:
    void hoveredChanged();

  private:
    MenuItem();

    QPointer<MenuItemView> view_;
    QPointer<QLabel> label_;
    MenuItemDelegate* delegate_ = nullptr;
    bool hovered_ = false;
};

}  // namespace kzq
