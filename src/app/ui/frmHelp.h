// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/ui/HelpBook.h"

#include <QHash>
#include <QImage>
#include <QTextBrowser>

class QAction;
class QLabel;
class QLineEdit;
class QToolBar;
class QTreeWidget;
class QTreeWidgetItem;
struct Desktop;

// Shows the pages of the manual. Pictures are never wider than the page, sharp at every scale of the screen. Colours
// are those of the palette. It follows no link by itself.
class HelpPage final : public QTextBrowser {
    Q_OBJECT
public:
    explicit HelpPage(QWidget* parent = nullptr);

    void setStyleFile(const QString& name); // for the pages from now on; the link in a page alone comes too late
    void zoom(int steps); // larger above 0, smaller below, back to normal at 0
    // Marks the next place, from the top again after the last one. False when the page does not have the text.
    bool findNext(const QString& text, QTextDocument::FindFlags flags = {});

    QVariant loadResource(int type, const QUrl& name) override;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    QPixmap fitted(const QImage& picture) const;
    void fitPictures();

    QHash<QUrl, QImage> m_pictures; // as they are in their files
    int m_zoom = 0;
};

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
