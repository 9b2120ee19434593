// SPDX-License-Identifier: GPL-2.0-or-later
// The base class of the viewer's document views.
#include <kelo_base/navigation/KView.h>

KView::KView(QWidget *parent) : QWidget(parent) {}

KView::~KView() = default;
