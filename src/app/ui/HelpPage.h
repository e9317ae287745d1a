// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHash>
#include <QImage>
#include <QTextBrowser>

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
