#include "kx_chart_toolbox.h"

#include "kx_chart_data_provider.h"
#include "kx_chart_data_user.h"
#include "ux/ux_object_watcher.h"

KXChartToolbox::KXChartToolbox() = default;

KXChartToolbox::~KXChartToolbox() = default;

void KXChartToolbox::setDataUser(KXChartDataUser* user) { m_dataUser = user; }

KXChartDataUser* KXChartToolbox::getDataUser() const { return m_dataUser; }

KXChartToolboxMenuContext* KXChartToolbox::getContext() const { return m_context; }

bool KXChartToolbox::getMenuOpen() const { return m_menuOpen; }

void KXChartToolbox::prepare()
{
    m_context = nullptr;
    if (!m_dataUser)
        return;
    const UXObjectWatcher self(this);
    KXChartDataProvider* provider = m_dataUser->beginUseDataProvider();
    KXChartToolboxMenuContext* context = provider ? provider->obtainDataToolboxContext(m_dataUser, nullptr)
                                                  : nullptr;
    if (!self.isAlive())
        return;
    m_dataUser->endUseDataProvider();
    m_context = context;
}

void KXChartToolbox::refresh()
{
    if (UXObject* parent = getParent())
        parent->addDirtyRect(getRect());
}

std::string KXChartToolbox::customSerializeTypeID() { return "KXChartToolbox"; }
