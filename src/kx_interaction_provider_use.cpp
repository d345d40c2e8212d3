#include "kx_interaction_provider_use.h"

#include "kx_chart.h"
#include "kx_chart_data_user.h"

namespace {

UXObject* obtainOwner(KXInteractionUser& user, UXObject* owner)
{
    auto* dataUser = dynamic_cast<KXChartDataUser*>(&user);
    return dataUser ? static_cast<UXObject*>(dataUser->getChart()) : owner;
}

} // namespace

KXInteractionProviderUse::KXInteractionProviderUse(KXInteractionUser& user, UXObject* owner)
    : m_user(user), m_owner(obtainOwner(user, owner)), m_provider(user.beginUseInteractionProvider())
{
}

KXInteractionProviderUse::~KXInteractionProviderUse()
{
    if (m_owner.isAlive())
        m_user.endUseInteractionProvider();
}
