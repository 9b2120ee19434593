// SPDX-License-Identifier: GPL-2.0-or-later
// The manager: which views have controls, and what is kept from one time to the next.
#include "core/settings_p.h"
#include "navigation/controls/viewcontrols_p.h"
#include "navigation/viewaccess_p.h"
#include <QCoreApplication>
#include <algorithm>
#include <kelo_base/core/UserDataManager.h>
#include <kelo_base/navigation/DocWindowNotifier.h>
#include <kelo_base/navigation/NavCtrlMgrIfc.h>
#include <kelo_base/navigation/ViewGeometry.h>
#include <memory>

using namespace Qt::Literals::StringLiterals;

namespace navcontrols {

namespace {

// Names in the user's layout: a format, never changed.
constexpr QLatin1StringView kGroup{"NavigationControls"};
constexpr QLatin1StringView kShown{"Shown"};
constexpr QLatin1StringView kCorner{"Corner"};
constexpr QLatin1StringView kFolded{"ViewMenu/Folded"};
constexpr QLatin1StringView kInterval{"PresentationMenu/Interval"};
constexpr QLatin1StringView kFieldOfView{"FieldOfView"};
constexpr QLatin1StringView kEyeDistance{"EyeDistance"};
constexpr QLatin1StringView kControls[ControlState::kControls] = {
    "NorthArrow"_L1, "HotAreas"_L1, "ViewMenu"_L1, "PresentationMenu"_L1};
constexpr QLatin1StringView kCorners[] = {"TopLeft"_L1, "TopRight"_L1, "BottomLeft"_L1,
                                          "BottomRight"_L1};

QString keyOf(std::size_t control, QLatin1StringView what)
{
    return kControls[control] + u'/' + what;
}

void writeState(QSettings &layout, const ControlState &state)
{
    const SettingsGroup group(layout, kGroup);
    layout.setValue(kShown, state.isShown);
    for (std::size_t i = 0; i < ControlState::kControls; ++i) {
        layout.setValue(keyOf(i, kShown), state.shown[i]);
        layout.setValue(keyOf(i, kCorner),
                        QString(kCorners[static_cast<std::size_t>(state.corners[i])]));
    }
    layout.setValue(kFolded, state.isViewMenuFolded);
    layout.setValue(kInterval, state.interval);
    layout.setValue(kFieldOfView, DefaultFieldOfView());
    layout.setValue(kEyeDistance, DefaultEyeToMonitorDistance());
}

/// What is not stored, or is no use, stays as it is.
void readState(QSettings &layout, ControlState &state)
{
    const SettingsGroup group(layout, kGroup);
    state.isShown = layout.value(kShown, state.isShown).toBool();
    for (std::size_t i = 0; i < ControlState::kControls; ++i) {
        state.shown[i] = layout.value(keyOf(i, kShown), state.shown[i]).toBool();
        const QString corner = layout.value(keyOf(i, kCorner)).toString();
        const auto *const found = std::find(std::begin(kCorners), std::end(kCorners), corner);
        if (found != std::end(kCorners))
            state.corners[i] = static_cast<Corner>(found - std::begin(kCorners));
    }
    state.isViewMenuFolded = layout.value(kFolded, state.isViewMenuFolded).toBool();
    state.interval = std::clamp(layout.value(kInterval, state.interval).toInt(),
                                Presentation::kLeastSeconds, Presentation::kMostSeconds);
    if (const double degrees = layout.value(kFieldOfView).toDouble(); degrees >= 1)
        SetDefaultFieldOfView(degrees);
    if (const double centimetres = layout.value(kEyeDistance).toDouble(); centimetres >= 1)
        SetDefaultEyeToMonitorDistance(centimetres);
}

} // namespace

class NavCtrlMgr final : public NavCtrlMgrIfc
{
public:
    NavCtrlMgr();
    ~NavCtrlMgr() override;

    void AddView(KView *view) override;
    void RemoveView(KView *view) override;
    [[nodiscard]] QList<KView *> Views() const override;
    void SetShown(bool isShown) override;
    [[nodiscard]] bool IsShown() const override { return m_state.isShown; }
    void SetControlShown(Control control, bool isShown) override;
    [[nodiscard]] bool IsControlShown(Control control) const override
    {
        return m_state.shown[static_cast<std::size_t>(control)];
    }
    void SetCorner(Control control, Corner corner) override;
    [[nodiscard]] Corner GetCorner(Control control) const override
    {
        return m_state.corner(control);
    }
    void SetViewMenuFolded(bool isFolded) override;
    [[nodiscard]] bool IsViewMenuFolded() const override { return m_state.isViewMenuFolded; }
    void SetNorthArrowGreyed(bool isGreyed) override;
    [[nodiscard]] QWidget *Widget(KView *view, Control control) const override;
    void SetWheelZoom(bool isOn) override { m_state.isWheelZooming = isOn; }
    bool ZoomByWheel(KView *view, const QWheelEvent &event) override;
    void SetDatabase(Database *database, const QString &project) override;
    [[nodiscard]] UDocItemList StoredViews() override;
    void SetStoredViews(const UDocItemList &views) override;
    bool StoreView(KView *view, const QString &title) override;
    bool ShowStoredView(KView *view, int steps) override;
    void SetPlaying(KView *view, bool isPlaying) override;
    void SetFullScreen(KView *view, bool isFull) override;
    void SetBlank(KView *view, bool isBlank) override;
    void LeavePresentation(KView *view) override;

private:
    [[nodiscard]] ViewControls *find(const KView *view) const;
    void follow(ViewControls &controls);
    void takePrimaryView();
    void replaceWindow();
    void removeAll();
    void forget(const QObject *view, bool isViewAlive);
    void applyAll();
    void listenToData();
    void saveUserState(const UserDataManagerI &data);

    ControlState m_state;
    navcontrols::StoredViews m_stored;
    QPointer<UserDataManagerI> m_data;
    struct Entry
    {
        const QObject *view; ///< compared only
        std::unique_ptr<ViewControls> controls;
    };
    std::vector<Entry> m_views;
};

namespace {
NavCtrlMgr *manager = nullptr;
} // namespace

NavCtrlMgr::NavCtrlMgr() : m_stored(nullptr)
{
    listenToData();
    try {
        readState(m_data->GetLayoutConfigFile(DataScopeUser, true), m_state);
    } catch (const std::runtime_error &) { // files are closed: the state begins anew
    }
    connect(&m_stored, &navcontrols::StoredViews::changed, this, &NavCtrlMgr::storedViewsChanged);
    connect(&m_stored, &navcontrols::StoredViews::failed, this, &NavCtrlMgr::storedViewsFailed);
    if (const DocWindowNotifier *notifier = DocWindowXIfc::Notifier()) {
        connect(notifier, &DocWindowNotifier::documentWindowReplaced, this,
                &NavCtrlMgr::replaceWindow);
        connect(notifier, &DocWindowNotifier::primaryViewReplaced, this,
                &NavCtrlMgr::takePrimaryView);
    }
    takePrimaryView();
}

NavCtrlMgr::~NavCtrlMgr()
{
    manager = nullptr;
    removeAll();
    if (!m_data)
        return;
    try {
        saveUserState(*m_data);
        if (m_data->HasOpenProject())
            m_stored.save(*m_data, true);
    } catch (const std::runtime_error &) { // files are closed: they were told before
    }
}

void NavCtrlMgr::listenToData()
{
    UserDataManagerI *const data = &UserDataManager();
    if (data == m_data)
        return;
    m_data = data;
    connect(data, &UserDataManagerI::onSavingUserConfigFiles, this,
            [this, data] { saveUserState(*data); });
    connect(data, &UserDataManagerI::onSavingProjectConfigFiles, this,
            [this, data] { m_stored.save(*data, true); });
}

void NavCtrlMgr::saveUserState(const UserDataManagerI &data)
{
    writeState(data.GetLayoutConfigFile(DataScopeUser, true), m_state);
    m_stored.save(data, false);
}

ViewControls *NavCtrlMgr::find(const KView *view) const
{
    const auto found = std::find_if(m_views.cbegin(), m_views.cend(),
                                    [view](const Entry &entry) { return entry.view == view; });
    return found == m_views.cend() ? nullptr : found->controls.get();
}

void NavCtrlMgr::AddView(KView *view)
{
    if (!view || find(view))
        return;
    listenToData();
    m_views.push_back({view, std::make_unique<ViewControls>(view, m_state, m_stored, nullptr)});
    ViewControls &controls = *m_views.back().controls;
    follow(controls);
    connect(view, &QObject::destroyed, this, [this, view] { forget(view, false); });
    controls.apply(); // asks the viewer, which may come back here
}

void NavCtrlMgr::follow(ViewControls &controls)
{
    KView *const view = controls.view();
    connect(&controls, &ViewControls::cornerChosen, this, &NavCtrlMgr::SetCorner);
    connect(&controls, &ViewControls::foldChosen, this, &NavCtrlMgr::SetViewMenuFolded);
    connect(&controls, &ViewControls::intervalEntered, this, [this](int seconds) {
        m_state.interval = seconds;
        applyAll();
    });
    connect(&controls, &ViewControls::eyeChanged, this, [this] {
        for (const Entry &entry : m_views)
            entry.controls->refreshEye();
    });
    connect(&controls, &ViewControls::scaleEntered, this, [this, view](double scale) {
        emit scaleEntered(view, scale, GetZoomFactorCorrectionForScaleValue(scale, scale));
    });
    connect(&controls.presentation(), &Presentation::presentingChanged, this,
            [this, view](bool isPresenting) { emit presentationChanged(view, isPresenting); });
}

void NavCtrlMgr::RemoveView(KView *view)
{
    if (!view)
        return;
    disconnect(view, &QObject::destroyed, this, nullptr);
    forget(view, true);
}

/// Controls may be taken away by what they themselves have set off: they go when that is over.
void NavCtrlMgr::forget(const QObject *view, bool isViewAlive)
{
    const auto found = std::find_if(m_views.begin(), m_views.end(),
                                    [view](const Entry &entry) { return entry.view == view; });
    if (found == m_views.end())
        return;
    ViewControls *const controls = found->controls.release();
    m_views.erase(found);
    controls->retire(isViewAlive);
}

QList<KView *> NavCtrlMgr::Views() const
{
    QList<KView *> views;
    for (const Entry &entry : m_views)
        if (KView *const view = entry.controls->view())
            views << view;
    return views;
}

void NavCtrlMgr::takePrimaryView()
{
    DocWindowXIfc *const window = isAnyViewDying() ? nullptr : DocWindowXIfc::HInstance();
    if (window)
        AddView(window->PrimaryView());
}

/// Views of the old window mean nothing to the new one.
void NavCtrlMgr::replaceWindow()
{
    removeAll();
    takePrimaryView();
}

void NavCtrlMgr::removeAll()
{
    while (!m_views.empty()) {
        if (KView *const view = m_views.back().controls->view())
            RemoveView(view);
        else
            forget(m_views.back().view, false);
    }
}

void NavCtrlMgr::applyAll()
{
    for (std::size_t i = 0; i < m_views.size(); ++i) // the viewer, asked, may add one
        m_views[i].controls->apply();
}

void NavCtrlMgr::SetShown(bool isShown)
{
    if (isShown == m_state.isShown)
        return;
    m_state.isShown = isShown;
    applyAll();
    emit shownChanged(isShown);
}

void NavCtrlMgr::SetControlShown(Control control, bool isShown)
{
    m_state.shown[static_cast<std::size_t>(control)] = isShown;
    applyAll();
}

void NavCtrlMgr::SetCorner(Control control, Corner corner)
{
    m_state.corners[static_cast<std::size_t>(control)] = corner;
    applyAll();
}

void NavCtrlMgr::SetViewMenuFolded(bool isFolded)
{
    m_state.isViewMenuFolded = isFolded;
    applyAll();
}

void NavCtrlMgr::SetNorthArrowGreyed(bool isGreyed)
{
    m_state.isArrowGreyed = isGreyed;
    applyAll();
}

QWidget *NavCtrlMgr::Widget(KView *view, Control control) const
{
    const ViewControls *const controls = find(view);
    return controls ? controls->widget(control) : nullptr;
}

bool NavCtrlMgr::ZoomByWheel(KView *view, const QWheelEvent &event)
{
    ViewControls *const controls = find(view);
    return controls && controls->zoomByWheel(event);
}

void NavCtrlMgr::SetDatabase(Database *database, const QString &project)
{
    m_stored.setDatabase(database, project);
}

NavCtrlMgr::UDocItemList NavCtrlMgr::StoredViews()
{
    listenToData();
    return m_stored.list();
}

void NavCtrlMgr::SetStoredViews(const UDocItemList &views)
{
    listenToData();
    m_stored.set(views);
}

bool NavCtrlMgr::StoreView(KView *view, const QString &title)
{
    listenToData();
    return view && storeView(m_stored, view, title);
}

bool NavCtrlMgr::ShowStoredView(KView *view, int steps)
{
    ViewControls *const controls = find(view);
    return controls && controls->presentation().step(steps);
}

void NavCtrlMgr::SetPlaying(KView *view, bool isPlaying)
{
    if (ViewControls *const controls = find(view))
        controls->presentation().setPlaying(isPlaying);
}

void NavCtrlMgr::SetFullScreen(KView *view, bool isFull)
{
    if (ViewControls *const controls = find(view))
        controls->presentation().setFullScreen(isFull);
}

void NavCtrlMgr::SetBlank(KView *view, bool isBlank)
{
    if (ViewControls *const controls = find(view))
        controls->presentation().setBlank(isBlank);
}

void NavCtrlMgr::LeavePresentation(KView *view)
{
    if (ViewControls *const controls = find(view))
        controls->presentation().leave();
}

} // namespace navcontrols

NavCtrlMgrIfc &NavCtrlMgrIfc::Instance()
{
    if (!navcontrols::manager)
        navcontrols::manager = new navcontrols::NavCtrlMgr;
    return *navcontrols::manager;
}

void NavCtrlMgrIfc::Destroy()
{
    delete navcontrols::manager;
}
