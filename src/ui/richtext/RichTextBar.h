// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/richtext/RichTextBox.h"

#include <QToolBar>
#include <functional>
#include <optional>

class QComboBox;
struct Desktop;

// The tool bar over a RichTextBox. Its buttons show the state of the selection and follow it.
class RichTextBar : public QToolBar {
    Q_OBJECT
public:
    using PickColor = std::function<std::optional<QColor>(const QColor& initial)>;

    // The box must outlive the bar. `keys` are the buttons in their order, "|" for a separator; an unknown key is left
    // out. Known are "New", "Open", "Save", "Print", "Cut", "Copy", "Paste", "Bold", "Italic", "Underline",
    // "Align Left", "Center", "Align Right", "Color", "Number", "Numbers", "Bullets", "Outdent" and "Indent". "New",
    // "Save", "Number" and "Numbers" are there, do nothing and are not shown. An action's object name is its key.
    RichTextBar(RichTextBox& box, const QStringList& keys, QWidget* parent = nullptr);

    QAction* command(const QString& key) const; // null when the key is not on this bar
    void setPickColor(PickColor pick) { m_pickColor = std::move(pick); }
    // For the bar of an editor, once it is in its layout: colours and the box's questions go through the desktop, which
    // outlives the bar, and the bar's stops follow `before` in the tab order.
    void join(const Desktop& desktop, QWidget* before);

signals:
    void openRequested();
    void printRequested();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void addCommands(const QStringList& keys);
    void addCombos();
    void setUpButtons();
    void trigger(const QString& key);
    void chooseColor();
    void takeFamily();
    void takePoints();
    void showLook();
    bool moveFocus(QObject* from, int step);

    RichTextBox& m_box;
    PickColor m_pickColor;
    QComboBox* m_family = nullptr;
    QComboBox* m_points = nullptr;
};
