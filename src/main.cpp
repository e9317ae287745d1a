// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Program.h"

int main(int argc, char** argv)
{
    return runProgram(argc, argv);
}
