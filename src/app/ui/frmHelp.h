// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/ui/HelpBook.h"

#include <QWidget>

class HelpPage;
class QAction;
class QLabel;
class QLineEdit;
class QToolBar;
class QTreeWidget;
class QTreeWidgetItem;
class QUrl;
struct Desktop;

// The manual: contents and search on the left, the page on the right. One window that stays open beside the others and
// can be read while an editor is open. Links to the web go to the shell.
class frmHelp final : public QWidget {
    Q_OBJECT
public:
    frmHelp(const QString& folder, const Desktop& desktop); // throws std::runtime_error when there is no manual
    ~frmHelp() override;

    void showPage(const QString& page); // "memos.html#find"; "" for the contents. Brings the window to the front.

protected:
    bool eventFilter(QObject* watched, QEvent* event) override; // the keys of the text boxes

private:
    void makeBar();
    QWidget* makeSide();
    QWidget* makeReader();
    QWidget* makeFindBar();
    void addShortcuts();
    QAction* add(const QString& name, const QString& text, const QString& icon,
                 std::initializer_list<QKeySequence> keys);

    void searchFor(const QString& words); // lists the sections that have them; "" for the contents
    void fillContents();
    void fillHits(const QString& words);
    void open(const QString& page);
    void openItem(const QTreeWidgetItem* item);
    void followLink(const QUrl& link);
    void pageChanged(const QUrl& source);
    void showFindBar();
    void findInPage(bool backward);
    void leave(); // Escape: the find bar, then the window

    HelpBook m_book;
    const Desktop& m_desktop;
    QToolBar* m_bar;
    HelpPage* m_page;
    QLineEdit* m_search;
    QTreeWidget* m_contents;
    QWidget* m_findBar;
    QLineEdit* m_find;
    QLabel* m_found;
};
