// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/richtext/RichTextFormat.h"
#include "ui/richtext/Rtf.h"

#include <QKeySequence>
#include <QTextEdit>
#include <functional>

class QMenu;

// What a key, a menu item or a tool bar button can do to the selection.
enum class RichTextCommand {
    Cut,
    Copy,
    Paste,
    PastePlain,
    Bold,
    Italic,
    Underline,
    AlignLeft,
    Center,
    AlignRight,
    Bullets,
    Outdent,
    Indent
};

// A box for a text that is stored as RTF. It gives back exactly what it was given until the user edits: only
// then is the RTF written anew, because a rewriting drops what the box cannot show.
class RichTextBox : public QTextEdit {
    Q_OBJECT
public:
    using Confirm = std::function<bool(const QString& message)>;
    struct MenuNames {
        QString menu, cut, copy, paste;
    };

    explicit RichTextBox(QWidget* parent = nullptr);

    // Shows a stored text: RTF, or plain when it is not RTF. Never counts as an edit; clears undo.
    void setRtf(const QString& stored);
    // The stored text while nothing is edited (or all edits are undone), else RTF in 7-bit ASCII. Empty when
    // the user emptied the box. Leave the document's own "modified" flag alone: it tells the two apart.
    QString rtf() const;
    const rtf::ReadInfo& readInfo() const { return m_info; } // of the stored text

    // Asked before the first edit that would drop pictures, tables or objects of the stored text; false leaves
    // the text as it is. Without one such a text cannot be edited.
    void setConfirm(Confirm confirm) { m_confirm = std::move(confirm); }

    // All these are edits of the user and may be refused (see setConfirm).
    bool replaceText(const QString& plain); // the whole content; false when refused
    void run(RichTextCommand command);
    void setFamily(const QString& family); // of the selection, or of what is typed next; so the next two
    void setPoints(int points);
    void setColor(const QColor& color); // black is the palette's text colour

    RichTextLook look() const;
    static QKeySequence keys(RichTextCommand command); // the first one; empty for none

    QMenu* menu() const { return m_menu; } // the context menu, owned by the box
    void setMenuNames(const MenuNames& names);
    void addMenuActions(const QList<QAction*>& actions); // below Paste; not owned

signals:
    void edited(); // the user changed text or formats
    void lookChanged();
    void linkActivated(const QString& address); // Ctrl+click or Ctrl+Enter

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    QMimeData* createMimeDataFromSelection() const override;
    bool canInsertFromMimeData(const QMimeData* source) const override;
    void insertFromMimeData(const QMimeData* source) override;

private:
    bool isGuarded() const { return m_info.losesContent() && !m_admitted; }
    bool admitEdit();
    void askAfterwards();
    void whenContentsChanged();
    void buildMenu();
    void updateMenu();
    bool isEdit(const QKeyEvent& event) const;
    bool doShortcut(const QKeyEvent& event);
    bool doLinkKey(const QKeyEvent& event);
    bool doListKey(const QKeyEvent& event);
    void leaveLink();
    QString linkAt(const QPoint& position) const;
    void applyChars(const QTextCharFormat& change);
    void align(Qt::Alignment alignment);
    void pastePlain();

    QString m_stored;
    rtf::ReadInfo m_info;
    Confirm m_confirm;
    QMenu* m_menu = nullptr;
    QAction *m_cut = nullptr, *m_copy = nullptr, *m_paste = nullptr;
    QAction *m_undo = nullptr, *m_redo = nullptr, *m_selectAll = nullptr, *m_extraEnd = nullptr;
    QString m_pressedLink;
    int m_revision = 0; // of the document when last looked at
    bool m_loading = false;
    bool m_admitted = false; // the user accepted the loss
    bool m_asking = false;
};
