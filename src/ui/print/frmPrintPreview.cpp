// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/print/frmPrintPreview.h"

#include "archive/ErrorTrap.h"
#include "desktop/Desktop.h"
#include "ui/print/PrintPages.h"
#include "ui/widgets/Icons.h"
#include "ui_frmPrintPreview.h"

#include <QAction>
#include <QLabel>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QSpinBox>
#include <QTimer>
#include <QToolBar>

using namespace Qt::StringLiterals;

frmPrintPreview::frmPrintPreview(PrintPages& pages, QPrinter& printer, const Desktop& desktop, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::frmPrintPreview>()), m_pages(pages), m_printer(printer),
      m_desktop(desktop), m_preview(nullptr)
{
    m_ui->setupUi(this);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    m_preview = new QPrintPreviewWidget(&m_printer, this);
    m_preview->setObjectName(u"preview"_s);
    m_ui->layMain->addWidget(m_preview);
    makeBar();
    connect(m_preview, &QPrintPreviewWidget::paintRequested, this, &frmPrintPreview::makePages);
    connect(m_preview, &QPrintPreviewWidget::previewChanged, this, &frmPrintPreview::showPlace);
    showPlace();
    m_preview->setFocus();
}

frmPrintPreview::~frmPrintPreview() = default;

QAction* frmPrintPreview::add(const char16_t* name, const char16_t* text, const char16_t* icon,
                              const QKeySequence& keys, std::function<void()> run)
{
    QToolBar& bar = *m_ui->tbToolBarPreview;
    const QString caption = QStringView(text).toString();
    QAction* action = bar.addAction(themedIcon(QStringView(icon).toString()), caption);
    action->setObjectName(QStringView(name).toString());
    action->setShortcut(keys);
    if (!keys.isEmpty())
        action->setToolTip(u"%1 (%2)"_s.arg(caption, keys.toString(QKeySequence::NativeText)));
    connect(action, &QAction::triggered, this, [this, run = std::move(run)] {
        run();
        showPlace();
    });
    return action;
}

void frmPrintPreview::makeBar()
{
    QToolBar& bar = *m_ui->tbToolBarPreview;
    using View = QPrintPreviewWidget;
    View& view = *m_preview;
    m_print = add(u"Print", u"Print", u"document-print", QKeySequence::Print, [this] { print(); });
    add(u"PageSetup", u"Page Setup", u"document-properties", {}, [this] { setUpPage(); });
    bar.addSeparator();
    m_back = {add(u"First", u"First Page", u"go-first", Qt::CTRL | Qt::Key_Home, [&view] { view.setCurrentPage(1); }),
              add(u"Previous", u"Previous Page", u"go-previous", Qt::CTRL | Qt::Key_PageUp,
                  [&view] { view.setCurrentPage(view.currentPage() - 1); })};
    makePageBox();
    m_forth = {add(u"Next", u"Next Page", u"go-next", Qt::CTRL | Qt::Key_PageDown,
                   [&view] { view.setCurrentPage(view.currentPage() + 1); }),
               add(u"Last", u"Last Page", u"go-last", Qt::CTRL | Qt::Key_End,
                   [&view] { view.setCurrentPage(view.pageCount()); })};
    bar.addSeparator();
    add(u"ZoomOut", u"Zoom Out", u"zoom-out", QKeySequence::ZoomOut, [&view] { view.zoomOut(); });
    add(u"ZoomIn", u"Zoom In", u"zoom-in", QKeySequence::ZoomIn, [&view] { view.zoomIn(); });
    m_fits = {add(u"FitWidth", u"Fit Width", u"zoom-fit-width", Qt::CTRL | Qt::Key_1, [&view] { view.fitToWidth(); }),
              add(u"FitPage", u"Whole Page", u"zoom-fit-page", Qt::CTRL | Qt::Key_0, [&view] { view.fitInView(); })};
    for (QAction* fit : m_fits)
        fit->setCheckable(true);
    bar.addSeparator();
    add(u"Close", u"Close", u"window-close", QKeySequence::Close, [this] { reject(); });
}

void frmPrintPreview::makePageBox()
{
    m_page = new QSpinBox(this);
    m_page->setObjectName(u"page"_s);
    m_page->setAccessibleName(u"Page"_s);
    m_page->setToolTip(u"Page"_s);
    m_page->setKeyboardTracking(false);
    m_pageCount = new QLabel(this);
    m_pageCount->setObjectName(u"pageCount"_s);
    m_pageCount->setContentsMargins(4, 0, 4, 0);
    m_ui->tbToolBarPreview->addWidget(m_page);
    m_ui->tbToolBarPreview->addWidget(m_pageCount);
    connect(m_page, &QSpinBox::valueChanged, this, [this](int page) {
        if (page != m_preview->currentPage())
            m_preview->setCurrentPage(page);
    });
}

// Called by the preview whenever it needs its pages anew.
void frmPrintPreview::makePages()
{
    if (m_isBusy)
        return;
    m_isBusy = true;
    m_preview->setUpdatesEnabled(false); // the pages that it shows are gone already
    bool made = false;
    trapErrors(m_desktop.questions, u"PreviewMemo"_s, [&] { made = paintPages(m_pages, m_printer, this); });
    m_preview->setUpdatesEnabled(true);
    m_isBusy = false;
    if (!made) // a part of the pages would look like all of them
        QTimer::singleShot(0, this, &QDialog::reject);
}

void frmPrintPreview::print()
{
    bool printed = false;
    trapErrors(m_desktop.questions, u"PrintMemo"_s, [&] {
        if (!m_desktop.printing.choose(m_printer, this))
            return;
        m_isBusy = true;
        try {
            printed = printPages(m_pages, m_printer, this);
        } catch (...) {
            m_isBusy = false;
            throw;
        }
        m_isBusy = false;
    });
    if (printed)
        accept();
}

void frmPrintPreview::setUpPage()
{
    if (m_desktop.printing.setUpPage(m_printer, this))
        m_preview->updatePreview();
}

void frmPrintPreview::reject()
{
    if (!m_isBusy)
        QDialog::reject();
}

void frmPrintPreview::showPlace()
{
    const int count = std::max(1, m_preview->pageCount());
    const int current = std::clamp(m_preview->currentPage(), 1, count);
    const QSignalBlocker quiet(m_page);
    m_page->setRange(1, count);
    m_page->setValue(current);
    m_pageCount->setText(u"of %1"_s.arg(count));
    for (QAction* action : m_back)
        action->setEnabled(current > 1);
    for (QAction* action : m_forth)
        action->setEnabled(current < count);
    m_fits[0]->setChecked(m_preview->zoomMode() == QPrintPreviewWidget::FitToWidth);
    m_fits[1]->setChecked(m_preview->zoomMode() == QPrintPreviewWidget::FitInView);
}
