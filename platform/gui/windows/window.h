/// The object behind a window handle: a dialog, a control, the desktop, or a window of the host's
/// that owns dialogs. For the user-interface thread only.
#pragma once

#include <windows.h>

#include <QFont>
#include <QImage>
#include <QPoint>
#include <QSize>
#include <QString>
#include <QWidget>

namespace platform {

enum class WindowKind { kDesktop, kOwner, kDialog, kStatic, kButton, kEdit, kList, kUpDown };

class Window {
public:
    virtual ~Window();
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    /// The window of a handle; null for one that is wrong or stale.
    [[nodiscard]] static Window* From(HWND handle);
    /// The window that a widget shows (or the nearest of its parents that shows one); may be null.
    [[nodiscard]] static Window* Of(const QWidget* widget);
    /// The desktop: no parent, no widget, its client area begins at (0, 0) of the screen.
    static Window& Desktop();

    [[nodiscard]] HWND Handle() const { return handle_; }
    [[nodiscard]] WindowKind Kind() const { return kind_; }
    [[nodiscard]] Window* Parent() const { return parent_; }
    [[nodiscard]] int ControlId() const { return controlId_; }  ///< 0 for everything but controls
    [[nodiscard]] QWidget* Widget() const { return widget_; }   ///< null for the desktop
    [[nodiscard]] QSize ClientSize() const;                     ///< pixels at 96 dots per inch
    [[nodiscard]] QPoint ClientOrigin() const;                  ///< on the screen
    [[nodiscard]] QFont Font() const;  ///< the font of the dialog's template

    /// What device contexts of this window draw into: of the client size at the resolution of the
    /// screen, at first in the colour of the window. A change of either begins a new image. An
    /// empty client area has an image of one pixel.
    QImage& Backing();
    /// Shows the image, at once when the window is on the screen.
    void ShowBacking();
    /// Whether there is an image to show in place of the window's own face.
    [[nodiscard]] bool HasDrawing() const;
    /// The words in the drawing, for those who cannot see it; empty when there are none.
    [[nodiscard]] const QString& DrawnText() const { return drawnText_; }
    void SetDrawnText(const QString& text);

    /// The window's text; a list's is its selected item's.
    [[nodiscard]] virtual QString Text() const { return {}; }
    virtual void SetText(const QString&) {}
    /// What the window does about a message; 0 for one it does not know.
    virtual LRESULT Receive(UINT, WPARAM, LPARAM) { return 0; }
    /// Puts the window elsewhere, in its parent's client area.
    virtual void Place(const QRect& place);

protected:
    Window(WindowKind kind, Window* parent, int controlId);
    /// Gives the window its widget, which then belongs to it.
    void Adopt(QWidget* widget);

private:
    WindowKind kind_;
    Window* parent_;
    int controlId_;
    HWND handle_;
    QWidget* widget_ = nullptr;
    [[nodiscard]] bool BackingFits() const;

    QImage backing_;
    QString drawnText_;
    bool drawn_ = false;
};

/// The window of a handle; null with the last error set for one that is wrong or stale.
[[nodiscard]] Window* RequireWindow(HWND handle);

}  // namespace platform
