// SPDX-License-Identifier: GPL-2.0-or-later
// The base class of the viewer's document views, and the silence while one of them dies.
#include "navigation/viewaccess_p.h"
#include <kelo_base/navigation/KView.h>
#include <memory>

namespace {

int dyingViews = 0;

struct Farewell
{
    Farewell() { ++dyingViews; }
    ~Farewell() { --dyingViews; }
    Q_DISABLE_COPY_MOVE(Farewell)
};

} // namespace

bool isAnyViewDying()
{
    return dyingViews > 0;
}

KView::KView(QWidget *parent) : QWidget(parent) {}

KView::~KView()
{
    // Children and listeners have their say after this body. The connection is what goes last.
    connect(this, &QObject::destroyed, this, [farewell = std::make_shared<Farewell>()] {});
}
