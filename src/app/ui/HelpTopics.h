// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <functional>
#include <span>

class QWidget;

// Which page of the manual tells about which window, view or pane of a window.
struct HelpTopic {
    const char16_t* name; // the object's
    const char16_t* page; // a file of the manual, with an anchor: "memos.html#find"
};
std::span<const HelpTopic> helpTopics();

// The page for whatever has the focus: of the nearest named thing around it, the view in front for the frame itself.
// "" when nothing around it is in the manual, also for null.
QString helpPageFor(const QWidget* focus);

// Takes the help key wherever it is pressed, in modal dialogs too, where the frame's shortcuts do not reach.
class HelpKey final : public QObject {
    Q_OBJECT
public:
    HelpKey(std::function<void()> showHelp, QObject* parent);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    std::function<void()> m_showHelp;
};
