// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "memo/ui/MemoPrintCode.h"
#include "ui/print/PrintRun.h"

#include <memory>

// A memo as it is printed. What is empty is left out.
struct PrintedMemo {
    QString name;
    QString language;
    QString category;
    QString created; // moments as text
    QString lastModified;
    QString link;
    QString description;
    StyledCode code;
    QString notes; // RTF, or plain text
};

// Memos, each beginning on a page of its own; the pages are counted through. A memo is read when its pages are laid
// out and again when they are painted, so that a thousand of them need the memory of one.
class MemoPages final : public PrintPages {
public:
    using Reader = std::function<PrintedMemo(int memo)>; // counted from 0; may throw

    MemoPages(int memoCount, Reader reader);
    ~MemoPages() override;
    bool layOut(QPrinter& printer, const Step& step) override;
    int pageCount() const override;
    void paint(QPainter& painter, int page) override;

private:
    struct Laid; // one memo on paper
    bool layOutMemo(int memo, const Step& step);

    int m_memoCount;
    Reader m_reader;
    PrintPaper m_paper;
    std::vector<int> m_firstPages; // of each memo, and the number of all pages
    std::unique_ptr<Laid> m_laid; // the last one
};
