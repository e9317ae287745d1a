// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <QKeySequence>
#include <functional>
#include <memory>

class PrintPages;
class QAction;
class QLabel;
class QPrintPreviewWidget;
class QPrinter;
class QSpinBox;
struct Desktop;

namespace Ui {
class frmPrintPreview;
}

// Shows pages as they will come out of the printer. Accepted when they were printed from here.
class frmPrintPreview : public QDialog {
    Q_OBJECT
public:
    // All outlive the window. The printer keeps what the user changes about the paper.
    frmPrintPreview(PrintPages& pages, QPrinter& printer, const Desktop& desktop, QWidget* parent);
    ~frmPrintPreview() override;

public slots:
    void reject() override; // not while pages are being made

private:
    void makeBar();
    QAction* add(const char16_t* name, const char16_t* text, const char16_t* icon, const QKeySequence& keys,
                 std::function<void()> run);
    void makePageBox();
    void makePages();
    void print();
    void setUpPage();
    void showPlace();

    std::unique_ptr<Ui::frmPrintPreview> m_ui;
    PrintPages& m_pages;
    QPrinter& m_printer;
    const Desktop& m_desktop;
    QPrintPreviewWidget* m_preview;
    QSpinBox* m_page = nullptr;
    QLabel* m_pageCount = nullptr;
    QAction* m_print = nullptr;
    QList<QAction*> m_back; // to earlier pages
    QList<QAction*> m_forth;
    QList<QAction*> m_fits; // width, page
    bool m_isBusy = false;
};
