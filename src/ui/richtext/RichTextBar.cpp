// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/richtext/RichTextBar.h"

#include "desktop/Desktop.h"
#include "desktop/Questions.h"
#include "ui/widgets/Colors.h"
#include "ui/widgets/Icons.h"

#include <QComboBox>
#include <QFontDatabase>
#include <QKeyEvent>
#include <QListView>
#include <QSignalBlocker>
#include <QToolButton>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int smallestPoints = 5;
constexpr int largestPoints = 72;

enum class Kind { Inert, Open, Print, Color, Command };

struct Button {
    const char* key;
    const char* tip;
    const char* icon;
    Kind kind;
    RichTextCommand command = RichTextCommand::Copy; // for Kind::Command
    bool staysPressed = false;
};

constexpr Button buttons[] = {
    {"New", "New", "document-new", Kind::Inert},
    {"Open", "Open", "document-open", Kind::Open},
    {"Save", "Save", "document-save", Kind::Inert},
    {"Print", "Print", "document-print", Kind::Print},
    {"Cut", "Cut", "edit-cut", Kind::Command, RichTextCommand::Cut},
    {"Copy", "Copy", "edit-copy", Kind::Command, RichTextCommand::Copy},
    {"Paste", "Paste", "edit-paste", Kind::Command, RichTextCommand::Paste},
    {"Bold", "Bold", "format-text-bold", Kind::Command, RichTextCommand::Bold, true},
    {"Italic", "Italic", "format-text-italic", Kind::Command, RichTextCommand::Italic, true},
    {"Underline", "Underline", "format-text-underline", Kind::Command, RichTextCommand::Underline, true},
    {"Align Left", "Align left", "format-justify-left", Kind::Command, RichTextCommand::AlignLeft, true},
    {"Center", "Center", "format-justify-center", Kind::Command, RichTextCommand::Center, true},
    {"Align Right", "Align right", "format-justify-right", Kind::Command, RichTextCommand::AlignRight, true},
    {"Color", "Text colour", "format-text-color", Kind::Color},
    {"Number", "Numbering", "format-list-ordered", Kind::Inert},
    {"Numbers", "Numbering", "format-list-ordered", Kind::Inert},
    {"Bullets", "Bullets", "format-list-unordered", Kind::Command, RichTextCommand::Bullets, true},
    {"Outdent", "Decrease indent", "format-indent-less", Kind::Command, RichTextCommand::Outdent},
    {"Indent", "Increase indent", "format-indent-more", Kind::Command, RichTextCommand::Indent},
};

const Button* buttonOf(const QString& key)
{
    const auto* it = std::find_if(std::begin(buttons), std::end(buttons),
                                  [&key](const Button& b) { return key == QLatin1String(b.key); });
    return it == std::end(buttons) ? nullptr : it;
}

QString tipOf(const Button& button)
{
    const QString text = QString::fromLatin1(button.tip);
    const QKeySequence keys = button.kind == Kind::Command ? RichTextBox::keys(button.command) : QKeySequence();
    return keys.isEmpty() ? text : text + u" ("_s + keys.toString(QKeySequence::NativeText) + u')';
}

bool isOn(const RichTextLook& look, RichTextCommand command)
{
    switch (command) {
    case RichTextCommand::Bold:
        return look.bold;
    case RichTextCommand::Italic:
        return look.italic;
    case RichTextCommand::Underline:
        return look.underline;
    case RichTextCommand::AlignLeft:
        return look.alignment == Qt::AlignLeft;
    case RichTextCommand::Center:
        return look.alignment == Qt::AlignHCenter;
    case RichTextCommand::AlignRight:
        return look.alignment == Qt::AlignRight;
    case RichTextCommand::Bullets:
        return look.bullets;
    default:
        return false;
    }
}

// A text that is not in the list (a font that this machine lacks, half a point) is shown all the same.
void showText(QComboBox& combo, const QString& text)
{
    const QSignalBlocker blocker(combo);
    combo.setPlaceholderText(text); // first: an empty one makes the combo choose its first entry
    combo.setCurrentIndex(text.isEmpty() ? -1 : combo.findText(text, Qt::MatchFixedString));
}

// Without the foundry, which Qt appends as "[foundry]" where two make a font of one name: nobody else knows such
// a name, and it goes into the text.
QStringList fontNames()
{
    QStringList names = QFontDatabase::families();
    for (QString& name : names)
        name = name.section(u" ["_s, 0, 0);
    names.removeDuplicates();
    return names;
}

QComboBox* newCombo(const QString& name, const QString& what, int characters, QWidget* parent)
{
    auto* combo = new QComboBox(parent);
    combo->setObjectName(name);
    combo->setAccessibleName(what);
    combo->setToolTip(what);
    combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    combo->setMinimumContentsLength(characters);
    combo->setMaxVisibleItems(20);
    if (auto* list = qobject_cast<QListView*>(combo->view()))
        list->setUniformItemSizes(true); // hundreds of fonts must not be measured one by one
    return combo;
}

} // namespace

RichTextBar::RichTextBar(RichTextBox& box, const QStringList& keys, QWidget* parent) : QToolBar(parent), m_box(box)
{
    setObjectName(u"tbToolBarNote"_s);
    setMovable(false);
    setToolButtonStyle(Qt::ToolButtonIconOnly);
    addCombos();
    addCommands(keys);
    setUpButtons();
    connect(&box, &RichTextBox::lookChanged, this, &RichTextBar::showLook);
    showLook();
}

void RichTextBar::addCombos()
{
    m_family = newCombo(u"cmbFontName"_s, u"Font"_s, 14, this);
    m_family->addItems(fontNames());
    m_family->view()->setMinimumWidth(m_family->fontMetrics().averageCharWidth() * 32);
    m_points = newCombo(u"cmbFontSize"_s, u"Font size"_s, 3, this);
    for (int points = smallestPoints; points <= largestPoints; ++points)
        m_points->addItem(QString::number(points));
    addWidget(m_family);
    addWidget(m_points);
    connect(m_family, &QComboBox::currentIndexChanged, this, &RichTextBar::takeFamily);
    connect(m_points, &QComboBox::currentIndexChanged, this, &RichTextBar::takePoints);
    // Choosing the size that stands there already means something when the text has half a point more.
    connect(m_points, &QComboBox::activated, this, &RichTextBar::takePoints);
    for (QComboBox* combo : {m_family, m_points})
        connect(combo, &QComboBox::activated, &m_box, [this] { m_box.setFocus(); });
}

void RichTextBar::addCommands(const QStringList& keys)
{
    for (const QString& key : keys) {
        const Button* button = buttonOf(key);
        if (key == u'|')
            addSeparator();
        if (!button)
            continue;
        auto* action = new QAction(themedIcon(QString::fromLatin1(button->icon)), key, this);
        action->setObjectName(key);
        action->setToolTip(tipOf(*button));
        action->setCheckable(button->staysPressed);
        action->setVisible(button->kind != Kind::Inert);
        connect(action, &QAction::triggered, this, [this, key] { trigger(key); });
        addAction(action);
    }
}

// One stop for Tab, then the arrow keys: eighteen stops on the way to the text would be too many.
void RichTextBar::setUpButtons()
{
    bool isFirst = true;
    for (QAction* action : actions()) {
        auto* button = qobject_cast<QToolButton*>(widgetForAction(action));
        if (!button)
            continue;
        button->installEventFilter(this);
        button->setAccessibleName(action->text());
        if (action->isVisible() && std::exchange(isFirst, false))
            button->setFocusPolicy(Qt::TabFocus);
    }
}

void RichTextBar::join(const Desktop& desktop, QWidget* before)
{
    setPickColor([&desktop](const QColor& initial) { return pickColor(desktop.files, initial); });
    m_box.setConfirm([&desktop](const QString& text) {
        return desktop.questions.ask(text, MessageStyle::YesNoDefaultNo) == Answer::Yes;
    });
    for (QWidget* stop :
         {static_cast<QWidget*>(m_family), static_cast<QWidget*>(m_points), widgetForAction(command(u"Open"_s))})
        setTabOrder(std::exchange(before, stop), stop);
}

QAction* RichTextBar::command(const QString& key) const
{
    return findChild<QAction*>(key, Qt::FindDirectChildrenOnly);
}

void RichTextBar::trigger(const QString& key)
{
    const Button* button = buttonOf(key);
    switch (button->kind) {
    case Kind::Inert:
        break;
    case Kind::Open:
        emit openRequested();
        break;
    case Kind::Print:
        emit printRequested();
        break;
    case Kind::Color:
        chooseColor();
        break;
    case Kind::Command:
        m_box.run(button->command);
        break;
    }
    showLook(); // a click has turned the button already, whether or not the text followed
}

void RichTextBar::chooseColor()
{
    if (!m_pickColor || m_box.isReadOnly())
        return;
    const QColor color = m_box.look().color;
    const std::optional<QColor> chosen = m_pickColor(color.isValid() ? color : m_box.palette().color(QPalette::Text));
    if (chosen && chosen->isValid())
        m_box.setColor(*chosen);
}

void RichTextBar::takeFamily()
{
    if (m_family->currentIndex() >= 0 && m_family->currentText() != m_box.look().family)
        m_box.setFamily(m_family->currentText());
    showLook();
}

void RichTextBar::takePoints()
{
    const int points = m_points->currentText().toInt();
    if (m_points->currentIndex() >= 0 && !qFuzzyCompare(m_box.look().points, points))
        m_box.setPoints(points);
    showLook();
}

void RichTextBar::showLook()
{
    const RichTextLook look = m_box.look();
    for (QAction* action : actions()) {
        const Button* button = buttonOf(action->objectName());
        if (!button)
            continue;
        if (button->staysPressed)
            action->setChecked(isOn(look, button->command));
        if (button->kind == Kind::Command && button->command == RichTextCommand::Cut)
            action->setEnabled(m_box.textCursor().hasSelection() && !m_box.isReadOnly());
        if (button->kind == Kind::Command && button->command == RichTextCommand::Copy)
            action->setEnabled(m_box.textCursor().hasSelection());
    }
    showText(*m_family, look.family);
    showText(*m_points, look.points > 0 ? QString::number(static_cast<int>(look.points)) : QString());
}

bool RichTextBar::moveFocus(QObject* from, int step)
{
    QList<QWidget*> stops;
    for (QAction* action : actions()) {
        QWidget* widget = widgetForAction(action);
        if (widget && widget->isVisible() && widget->isEnabled() && qobject_cast<QToolButton*>(widget))
            stops.append(widget);
    }
    const qsizetype at = stops.indexOf(qobject_cast<QWidget*>(from)) + step;
    if (at < 0 || at >= stops.size())
        return false;
    stops[at]->setFocus(Qt::TabFocusReason);
    return true;
}

bool RichTextBar::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Left || key == Qt::Key_Right) {
            moveFocus(watched, key == Qt::Key_Left ? -1 : 1);
            return true;
        }
    }
    return QToolBar::eventFilter(watched, event);
}
