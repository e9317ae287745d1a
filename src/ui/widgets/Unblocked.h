// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

class QWidget;

// Keeps a top-level window usable while modal ones are up. A modal window blocks all others but those that belong to
// it: the kept one belongs to whatever modal window is in front, and to the one behind that when it goes.
class QtUnblocked final : public QObject {
    Q_OBJECT
public:
    explicit QtUnblocked(QWidget& window); // goes with it

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void belongToModal();

    QWidget& m_window;
};
