#include <QAccessible>
#include <QApplication>
#include <QMetaEnum>
#include <QWidget>

#include "platform/gui/windows/application.h"
#include "tests/wmeditor/editor_fixture.h"

namespace oemui {
namespace {

constexpr int kLongestListShown = 8;  // of the typefaces, the machine's own, the selected one alone

QAccessibleInterface& Root() {
    return *QAccessible::queryAccessibleInterface(QApplication::activeModalWidget());
}

QString StatesOf(const QAccessibleInterface& of) {
    const QAccessible::State state = of.state();
    QString states;
    if (state.modal != 0) states += " modal";
    if (state.focused != 0) states += " focused";
    if (state.disabled != 0) states += " disabled";
    if (state.checked != 0) states += " checked";
    if (state.defaultButton != 0) states += " default";
    if (state.expanded != 0) states += " expanded";
    return states;
}

/// One line: role, name, value, range, description, letter, states, label.
QString LineOf(QAccessibleInterface& of) {
    QString line = QMetaEnum::fromType<QAccessible::Role>().valueToKey(of.role());
    line += " '" + of.text(QAccessible::Name) + "'";
    const QString value = of.text(QAccessible::Value);
    if (!value.isEmpty()) line += " = " + value;
    if (auto* range = of.valueInterface()) {
        line += " of " + range->minimumValue().toString() + ".." + range->maximumValue().toString();
    }
    for (const auto text : {QAccessible::Description, QAccessible::Accelerator}) {
        if (!of.text(text).isEmpty()) line += ", " + of.text(text);
    }
    line += StatesOf(of);
    for (const auto& [other, relation] : of.relations()) {
        line += relation == QAccessible::Label ? " <- " : " -> ";
        line += other->text(QAccessible::Name);
    }
    return line;
}

/// A line for each, what stands in it below it; the items of a list behind it, the selected in
/// brackets.
QString TreeOf(QAccessibleInterface& of, int depth = 0) {
    QString tree = (depth == 0 ? "" : "\n") + QString(depth, ' ') + LineOf(of);
    for (int i = 0; i < of.childCount(); ++i) {
        QAccessibleInterface& child = *of.child(i);
        EXPECT_EQ(child.parent(), &of);
        EXPECT_EQ(of.indexOfChild(&child), i);
        if (child.role() != QAccessible::ListItem) {
            tree += TreeOf(child, depth + 1);
        } else if (child.state().selected != 0) {
            tree += " [" + child.text(QAccessible::Name) + "]";
        } else if (of.childCount() <= kLongestListShown) {
            tree += " " + child.text(QAccessible::Name);
        }
    }
    return tree;
}

/// The one with a role and a name in a tree; null when there is none.
QAccessibleInterface* Find(QAccessibleInterface& in, QAccessible::Role role, const QString& name) {
    if (in.role() == role && in.text(QAccessible::Name) == name) return &in;
    QAccessibleInterface* found = nullptr;
    for (int i = 0; i < in.childCount() && found == nullptr; ++i) {
        found = Find(*in.child(i), role, name);
    }
    return found;
}

constexpr const char* kEditor = R"(Dialog 'Watermark' modal
 Grouping 'Watermark Edit'
  Grouping 'Preview' -> Preview
   Graphic 'Preview', Preview: Alpha <- Preview
  Grouping 'Operations'
   StaticText 'Watermark List:' -> Watermark List
   ComboBox 'Watermark List' = Alpha, Alt+L focused <- Watermark List:
    List 'Watermark List' <NONE> [Alpha] Delta Echo Foxtrot
   Button 'New', Alt+N
   Button 'Delete', Alt+D
   Button 'OK' default
   Button 'Cancel'
   Button 'Help'
  Grouping 'Settings'
   StaticText 'Name:' -> Name
   EditableText 'Name' = Alpha, Alt+M <- Name:
   StaticText 'String:' -> String
   EditableText 'String' = Alpha, Alt+S <- String:
   Grouping 'Font'
    StaticText 'Typeface:' -> Typeface
    ComboBox 'Typeface' = Arial, Alt+F <- Typeface:
     List 'Typeface' [Arial]
    StaticText 'Size:' -> Size -> Size
    EditableText 'Size' = 72, Alt+Z <- Size:
    SpinBox 'Size' = 72 of 8..200 <- Size:
    StaticText 'Point [8-200]'
    StaticText 'Style:'
    CheckBox 'Bold', Alt+O
    CheckBox 'Italic', Alt+I
    StaticText 'Color:' -> Color
    ComboBox 'Color' = Black, Alt+C <- Color:
     List 'Color' [Black] Cyan Magenta Yellow Red Green Blue
   Grouping 'Angle' -> Angle
    ComboBox 'Angle' = Horizontal, Alt+A <- Angle
     List 'Angle' [Horizontal] Diagonal Vertical User Define
    StaticText 'User Setting:' disabled -> User Setting -> User Setting
    EditableText 'User Setting' = 0, Alt+U disabled <- User Setting:
    SpinBox 'User Setting' = 0 of -180..180 disabled <- User Setting:
    StaticText 'Degrees'
    StaticText '[-180 - 180]'
   Grouping 'Position'
    RadioButton 'Center', Alt+E checked
    RadioButton 'User Setting', Alt+T
    StaticText 'Horizontal:' -> Horizontal -> Horizontal
    EditableText 'Horizontal' = 0, Alt+H disabled <- Horizontal:
    SpinBox 'Horizontal' = 0 of -999..999 disabled <- Horizontal:
    StaticText 'Vertical:' -> Vertical -> Vertical
    EditableText 'Vertical' = 0, Alt+V disabled <- Vertical:
    SpinBox 'Vertical' = 0 of -999..999 disabled <- Vertical:)";

/// Asks about every window at each of its events, from before it is made until after it has gone.
class ImpatientReader : public QObject {
public:
    ImpatientReader() {
        platform::EnsureApplication();
        qApp->installEventFilter(this);
    }
    int Answers() const { return answers_; }

protected:
    bool eventFilter(QObject* window, QEvent*) override {
        auto* of = window->isWidgetType() ? QAccessible::queryAccessibleInterface(window) : nullptr;
        if (of == nullptr || !of->isValid()) return false;
        answers_ += LineOf(*of).isEmpty() ? 0 : 1;
        for (int i = 0; i < of->childCount(); ++i)
            answers_ += LineOf(*of->child(i)).isEmpty() ? 0 : 1;
        return false;
    }

private:
    int answers_ = 0;
};

using EditorReaders = tests::EditorTest;

TEST_F(EditorReaders, FindEverythingWithRoleNameValueAndState) {
    Edit([&] { EXPECT_EQ(TreeOf(Root()).toStdString(), kEditor); });
}

TEST_F(EditorReaders, FollowTheFocusAndTheTypedText) {
    Edit([&] {
        QStringList path;
        do {
            path += Root().focusChild()->text(QAccessible::Name);
            user_.PressKey(VK_TAB);
        } while (path.size() < 40 &&
                 ::GetFocus() != ::GetDlgItem(user_.Dialog(), IDC_WATERMARK_LIST));
        EXPECT_EQ(
            path.join(", ").toStdString(),
            "Watermark List, New, Delete, OK, Cancel, Help, Name, String, Typeface, Size, Size, "
            "Bold, Italic, Color, Angle, Center");
        user_.TypeText(IDC_TEXT, TEXT("Zebra"));
        EXPECT_EQ(Find(Root(), QAccessible::Graphic, "Preview")->text(QAccessible::Description),
                  "Preview: Zebra");
        user_.Click(IDC_COLOR);
        EXPECT_EQ(TreeOf(*Find(Root(), QAccessible::ComboBox, "Color")).toStdString(),
                  "ComboBox 'Color' = Black, Alt+C focused expanded <- Color:\n"
                  " List 'Color' [Black] Cyan Magenta Yellow Red Green Blue");
    });
}

TEST_F(EditorReaders, WorkUnderTheRulesOfThePersonAtTheKeys) {
    Edit([&] {
        auto* name = Find(Root(), QAccessible::EditableText, "Name")->editableTextInterface();
        name->replaceText(-5, 99, QString(100, 'x') + "\nsecond line");
        EXPECT_EQ(TextOf(IDC_NAME), std::string(20, 'x'));
        name->deleteText(3, 1000);
        EXPECT_EQ(TextOf(IDC_NAME), "xxx");
        Find(Root(), QAccessible::EditableText, "Size")
            ->editableTextInterface()
            ->insertText(0, "?");
        auto* size = Find(Root(), QAccessible::SpinBox, "Size")->valueInterface();
        size->setCurrentValue(500);
        EXPECT_EQ(TextOf(IDC_POINT_SIZE), "200");
        Find(Root(), QAccessible::CheckBox, "Bold")->actionInterface()->doAction("Toggle");
        Find(Root(), QAccessible::SpinBox, "Vertical")->valueInterface()->setCurrentValue(5);
        QCoreApplication::processEvents();
        EXPECT_EQ(Preview().Bold, 1u);
        EXPECT_EQ(TextOf(IDC_VERTICAL), "0") << "disabled";
    });
}

TEST_F(EditorReaders, MayAskAtAnyTime) {
    const ImpatientReader reader;
    Edit([&] { user_.Choose(IDC_COLOR, TEXT("Blue")); });
    EXPECT_GT(reader.Answers(), 100);
}

}  // namespace
}  // namespace oemui
