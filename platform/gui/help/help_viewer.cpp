#include "platform/gui/help/help_viewer.h"

#include <windows.h>

#include <QApplication>
#include <QCursor>
#include <QKeyEvent>
#include <QLabel>
#include <QScreen>
#include <QTextBrowser>
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

constexpr int kNoteColumns = 52;  // average characters in a line of a note
constexpr int kNoteMargin = 8;    // pixels at 96 dpi
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

/// A yellow note that a click or a key takes away; a click beside it does so as with any pop-up.
class HelpNote : public QLabel {
public:
    HelpNote(QWidget* owner, const QString& text) : QLabel(owner, Qt::Popup) {
        QPalette colors = palette();
        colors.setColor(QPalette::Window, kNotePaper);
        colors.setColor(QPalette::WindowText, Qt::black);
        setPalette(colors);
        setFrameStyle(QFrame::Box | QFrame::Plain);
        setMargin(kNoteMargin * logicalDpiX() / 96);
        setTextFormat(Qt::RichText);
        setText(Html(text));
        setWordWrap(true);
        setFixedWidth(fontMetrics().averageCharWidth() * kNoteColumns);
        resize(width(), heightForWidth(width()));
    }

protected:
    void mousePressEvent(QMouseEvent*) override { close(); }
    void keyPressEvent(QKeyEvent*) override { close(); }
};

/// A window with the topic; scrolls when it is long.
class HelpWindow : public QTextBrowser {
public:
    HelpWindow(QWidget* owner, const QString& text) : QTextBrowser(owner) {
        setWindowFlags(Qt::Window | Qt::WindowTitleHint | Qt::WindowCloseButtonHint);
        setWindowTitle(QStringLiteral("Help"));
        setOpenLinks(false);
        setHtml(Html(text));
        document()->setDocumentMargin(kNoteMargin);
        resize(fontMetrics().averageCharWidth() * 84, fontMetrics().height() * 40);
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

std::unique_ptr<QWidget> MakeViewer(const HelpRequest& request, QWidget* owner) {
    EnsureApplication();
    if (request.command == HELP_CONTEXTPOPUP) {
        return std::make_unique<HelpNote>(owner, ShownText(request));
    }
    return std::make_unique<HelpWindow>(owner, ShownText(request));
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

void PlaceOnScreen(QWidget& note, QPoint place) {
    const QScreen* screen = QGuiApplication::screenAt(place);
    if (screen == nullptr) screen = QGuiApplication::primaryScreen();
    const QRect room = screen->availableGeometry();
    place.setX(qMax(room.left(), qMin(place.x(), room.right() - note.width())));
    place.setY(qMax(room.top(), qMin(place.y(), room.bottom() - note.height())));
    note.move(place);
}

}  // namespace

void ShowHelp(const HelpRequest& request) {
    QWidget* owner = OwnerWidget(request.owner);
    QWidget* viewer = MakeViewer(request, owner).release();
    viewer->setAttribute(Qt::WA_DeleteOnClose);
    if (request.command == HELP_CONTEXTPOPUP) PlaceOnScreen(*viewer, PlaceOfInterest(owner));
    viewer->show();
}

bool SaveHelpPicture(const HelpRequest& request, const std::filesystem::path& file) {
    const std::unique_ptr<QWidget> viewer = MakeViewer(request, nullptr);
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
