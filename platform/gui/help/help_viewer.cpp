#include "platform/gui/help/help_viewer.h"

#include <windows.h>

#include <QApplication>
#include <QCursor>
#include <QKeyEvent>
#include <QLabel>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTextBrowser>
#include <algorithm>
#include <memory>

#include "platform/base/fail.h"
#include "platform/base/paths.h"
#include "platform/faults/failure_points.h"
#include "platform/gui/help/help_file.h"
#include "platform/gui/windows/application.h"
#include "platform/gui/windows/picture.h"
#include "platform/gui/windows/window.h"

namespace platform {
namespace {

constexpr int kNoteColumns = 52;     // average characters in a line of a note
constexpr int kWiderColumns = 8;     // how much wider a note gets at a time
constexpr int kNoteMargin = 8;       // pixels at 96 dpi
constexpr int kEdge = 4;             // pixels left free along the edges of the screen
constexpr QSize kDecoration(8, 32);  // pixels of a window's borders and caption
constexpr QColor kNotePaper(255, 255, 225);

QString ShownText(const HelpRequest& request) {
    if (!request.text.empty()) return QString::fromStdU16String(request.text);
    return QStringLiteral("Help is not available.\n\nThere is no topic %1 in the file %2.")
        .arg(request.topic)
        .arg(QString::fromStdU16String(request.file));
}

/// One paragraph; the items of a list keep their lines and get bullets.
QString ParagraphHtml(const QString& paragraph) {
    QStringList lines = paragraph.trimmed().toHtmlEscaped().split('\n');
    for (QString& line : lines) {
        if (line.startsWith("- ")) line.replace(0, 1, "&bull;");
    }
    return "<p>" + lines.join("<br>") + "</p>";
}

/// The title in bold, then the paragraphs.
QString Html(const QString& text) {
    const qsizetype titleEnd = text.indexOf('\n');
    QString html = "<p><b>" + text.left(titleEnd).toHtmlEscaped() + "</b></p>";
    if (titleEnd < 0) return html;
    const QStringList paragraphs = text.mid(titleEnd).split("\n\n", Qt::SkipEmptyParts);
    for (const QString& paragraph : paragraphs) html += ParagraphHtml(paragraph);
    return html;
}

/// Where the windows of a place on the screens have room.
QRect RoomAt(const QPoint& place) {
    const QScreen* screen = QGuiApplication::screenAt(place);
    const QRect whole =
        (screen != nullptr ? screen : QGuiApplication::primaryScreen())->availableGeometry();
    return whole.marginsRemoved(QMargins(kEdge, kEdge, kEdge, kEdge));
}

QLabel* MakeNoteText(const QString& text) {
    auto* label = new QLabel(Html(text));
    QPalette colors = label->palette();
    colors.setColor(QPalette::Window, kNotePaper);
    colors.setColor(QPalette::WindowText, Qt::black);
    label->setPalette(colors);
    label->setAutoFillBackground(true);
    label->setMargin(kNoteMargin * label->logicalDpiX() / 96);
    label->setTextFormat(Qt::RichText);
    label->setWordWrap(true);
    return label;
}

bool IsScrollKey(int key) {
    return key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp ||
           key == Qt::Key_PageDown;
}

/// A yellow note that a click or a key takes away; a click beside it does so as with any pop-up.
/// It is never larger than the screen: a long text makes it wider, and a longer one scrolls.
class HelpNote : public QScrollArea {
public:
    HelpNote(QWidget* owner, const QString& text, const QSize& room) : QScrollArea(owner) {
        setWindowFlags(Qt::Popup);
        setAccessibleName(text);
        setFrameStyle(QFrame::Box | QFrame::Plain);
        setWidget(MakeNoteText(text));
        Fit(room - 2 * QSize(frameWidth(), frameWidth()));
    }

protected:
    // What comes to the area itself, clicks beside it too, would otherwise be ignored.
    bool event(QEvent* event) override {
        return event->type() == QEvent::MouseButtonPress ? close() : QScrollArea::event(event);
    }
    void mousePressEvent(QMouseEvent*) override { close(); }
    void keyPressEvent(QKeyEvent* event) override {
        const bool scrolls = verticalScrollBar()->maximum() > 0 && IsScrollKey(event->key());
        if (scrolls) return QScrollArea::keyPressEvent(event);
        close();
    }

private:
    void Fit(const QSize& room) {
        const int column = fontMetrics().averageCharWidth();
        int width = std::min(column * kNoteColumns, room.width());
        while (width < room.width() && widget()->heightForWidth(width) > room.height()) {
            width = std::min(width + column * kWiderColumns, room.width());
        }
        const bool scrolls = widget()->heightForWidth(width) > room.height();
        const int bar = scrolls ? verticalScrollBar()->sizeHint().width() : 0;
        const int textWidth = std::min(width, room.width() - bar);
        widget()->resize(textWidth, widget()->heightForWidth(textWidth));
        resize(textWidth + bar + 2 * frameWidth(),
               std::min(widget()->height(), room.height()) + 2 * frameWidth());
    }
};

/// A window with the topic; scrolls when it is long.
class HelpWindow : public QTextBrowser {
public:
    HelpWindow(QWidget* owner, const QString& text, const QSize& room) : QTextBrowser(owner) {
        setWindowFlags(Qt::Window | Qt::WindowTitleHint | Qt::WindowCloseButtonHint);
        setWindowTitle(QStringLiteral("Help"));
        setOpenLinks(false);
        setHtml(Html(text));
        document()->setDocumentMargin(kNoteMargin);
        resize(QSize(fontMetrics().averageCharWidth() * 84, fontMetrics().height() * 40)
                   .boundedTo(room - kDecoration));
    }

protected:
    void keyPressEvent(QKeyEvent* event) override {
        if (event->matches(QKeySequence::Cancel)) {
            close();
        } else {
            QTextBrowser::keyPressEvent(event);
        }
    }
};

std::unique_ptr<QWidget> MakeViewer(const HelpRequest& request, QWidget* owner, const QSize& room) {
    if (request.command == HELP_CONTEXTPOPUP) {
        return std::make_unique<HelpNote>(owner, ShownText(request), room);
    }
    return std::make_unique<HelpWindow>(owner, ShownText(request), room);
}

QWidget* OwnerWidget(HWND owner) {
    const Window* window = Window::From(owner);
    return window == nullptr ? nullptr : window->Widget();
}

/// Under the mouse when it is over the dialog, else under the control that has the focus.
QPoint PlaceOfInterest(const QWidget* owner) {
    const QPoint mouse = QCursor::pos();
    if (owner == nullptr || owner->rect().contains(owner->mapFromGlobal(mouse))) return mouse;
    const QWidget* focused = owner->window()->focusWidget();
    const QWidget* near = focused != nullptr ? focused : owner;
    return near->mapToGlobal(QPoint(0, near->height()));
}

void PlaceInRoom(QWidget& note, const QRect& room, QPoint place) {
    place.setX(qMax(room.left(), qMin(place.x(), room.right() + 1 - note.width())));
    place.setY(qMax(room.top(), qMin(place.y(), room.bottom() + 1 - note.height())));
    note.move(place);
}

}  // namespace

void ShowHelp(const HelpRequest& request) {
    EnsureApplication();
    QWidget* owner = OwnerWidget(request.owner);
    const QPoint place = PlaceOfInterest(owner);
    const QRect room = RoomAt(place);
    QWidget* viewer = MakeViewer(request, owner, room.size()).release();
    viewer->setAttribute(Qt::WA_DeleteOnClose);
    if (request.command == HELP_CONTEXTPOPUP) PlaceInRoom(*viewer, room, place);
    viewer->show();
}

bool SaveHelpPicture(const HelpRequest& request, const std::filesystem::path& file) {
    EnsureApplication();
    const std::unique_ptr<QWidget> viewer = MakeViewer(request, nullptr, RoomAt({}).size());
    viewer->ensurePolished();
    return SavePicture(*viewer, file);
}

}  // namespace platform

BOOL WINAPI WinHelpW(HWND owner, LPCWSTR file, UINT command, ULONG_PTR topic) try {
    if (const auto error = platform::InjectedFailure("WinHelpW")) return platform::Fail(*error);
    const bool known = command == HELP_CONTEXT || command == HELP_CONTEXTPOPUP;
    if (file == nullptr || !known || topic > 0xFFFFFFFFu) {
        return platform::Fail(ERROR_INVALID_PARAMETER);
    }
    const auto number = static_cast<DWORD>(topic);
    platform::CurrentUser().ReadHelp({owner, file, command, number,
                                      platform::ReadHelpTopic(platform::NativePath(file), number)});
    return TRUE;
} catch (...) {
    return platform::FailCaught();
}
