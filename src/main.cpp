// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/ui/Program.h"
#include "ui/tour/Tour.h"

int main(int argc, char** argv)
{
    return runProgram(argc, argv, runTour);
}
