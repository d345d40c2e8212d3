#include "kx_chart_data_provider.h"

#include "ux/ux_color.h"
#include "ux/ux_text_property.h"

KXChartDataProvider::~KXChartDataProvider() = default;

void KXChartDataProvider::prepareData(KXChartDataUser*) {}

std::string KXChartDataProvider::obtainDimensionName(KXChartDataUser*, std::uint64_t) { return {}; }
std::string KXChartDataProvider::obtainDimensionLabel(KXChartDataUser*, std::uint64_t) { return {}; }
std::string KXChartDataProvider::obtainDimensionSecondaryLabel(KXChartDataUser*, std::uint64_t) { return {}; }

KXChartDataProviderDimensionSetting KXChartDataProvider::obtainDimensionSetting(KXChartDataUser*,
                                                                                std::uint64_t)
{
    return {};
}

KXChartDataType KXChartDataProvider::obtainDimensionDataType(KXChartDataUser*, std::uint64_t)
{
    return KXChartDataType::String;
}

KXChartAggregateType KXChartDataProvider::obtainDimensionAggregateType(KXChartDataUser*, std::uint64_t)
{
    return KXChartAggregateType{0};
}

std::uint64_t KXChartDataProvider::obtainDimensionDataCount(KXChartDataUser*, std::uint64_t) { return 0; }
std::string KXChartDataProvider::obtainDimensionData(KXChartDataUser*, const KXIndexPath&) { return {}; }

std::vector<std::uint64_t> KXChartDataProvider::obtainDimensionDataAsIndexRange(KXChartDataUser*, double,
                                                                                double)
{
    return {};
}

bool KXChartDataProvider::obtainDimensionDataIsNull(KXChartDataUser*, const KXIndexPath&) { return false; }
bool KXChartDataProvider::obtainDimensionDataIsEmpty(KXChartDataUser*, const KXIndexPath&) { return false; }
bool KXChartDataProvider::obtainDimensionDataIsGenerated(KXChartDataUser*, const KXIndexPath&)
{
    return false;
}
double KXChartDataProvider::obtainDimensionDataAsNumber(KXChartDataUser*, const KXIndexPath&) { return 0; }
double KXChartDataProvider::obtainDimensionDataAsRangeDifference(KXChartDataUser*, const KXIndexPath&)
{
    return 0;
}
std::string KXChartDataProvider::obtainDimensionDataAsDateTime(KXChartDataUser*, double) { return {}; }
std::int64_t KXChartDataProvider::obtainNextValidDimensionIndex(KXChartDataUser*, const KXIndexPath&)
{
    return -1;
}

std::int64_t KXChartDataProvider::obtainPreviousValidDimensionIndex(KXChartDataUser*, const KXIndexPath&)
{
    return -1;
}

bool KXChartDataProvider::shouldFormatDimenionData(KXChartDataUser*, const KXIndexPath&) { return true; }

std::uint64_t KXChartDataProvider::obtainValueCount(KXChartDataUser*) { return 0; }
std::string KXChartDataProvider::obtainValueLabel(KXChartDataUser*, std::uint64_t) { return {}; }

std::string KXChartDataProvider::obtainValueID(KXChartDataUser* user, std::uint64_t value)
{
    return obtainValueLabel(user, value);
}

KXChartDataType KXChartDataProvider::obtainValueDataType(KXChartDataUser*, const KXIndexPath&)
{
    return KXChartDataType::Float;
}

KXChartAggregateType KXChartDataProvider::obtainValueAggregateType(KXChartDataUser*, const KXIndexPath&)
{
    return KXChartAggregateType{6};
}

bool KXChartDataProvider::validateValueData(KXChartDataUser*, const KXIndexPath&) { return true; }
bool KXChartDataProvider::obtainValueDataIsNull(KXChartDataUser*, const KXIndexPath&) { return false; }
bool KXChartDataProvider::obtainValueDataIsEmpty(KXChartDataUser*, const KXIndexPath&) { return false; }
bool KXChartDataProvider::obtainValueDataIsGenerated(KXChartDataUser*, const KXIndexPath&) { return false; }
double KXChartDataProvider::obtainValueData(KXChartDataUser*, const KXIndexPath&) { return 0; }
std::string KXChartDataProvider::obtainValueDataString(KXChartDataUser*, const KXIndexPath&) { return {}; }
bool KXChartDataProvider::obtainValueDataColor(KXChartDataUser*, const KXIndexPath&, UXColor&)
{
    return false;
}

bool KXChartDataProvider::obtainValueDataColorForGroup(KXChartDataUser*, const KXIndexPath&, UXColor&)
{
    return false;
}

bool KXChartDataProvider::obtainValueDataColorForGroup(KXChartDataUser*, std::uint64_t, UXColor&)
{
    return false;
}

void KXChartDataProvider::customizeValueDataLabel(KXChartDataUser*, const KXIndexPath&, std::string&,
                                                  UXTextProperty&)
{
}

bool KXChartDataProvider::obtainDataShouldRightClickAction(KXChartDataUser*, KXChartDataPath*)
{
    return false;
}
void* KXChartDataProvider::obtainDataRightClickContext(KXChartDataUser*, KXChartDataPath*) { return nullptr; }
bool KXChartDataProvider::obtainDataShouldLeftClickAction(KXChartDataUser*, KXChartDataPath*)
{
    return false;
}

std::function<void()> KXChartDataProvider::obtainDataLeftClickAction(KXChartDataUser*, KXChartDataPath*)
{
    return {};
}

bool KXChartDataProvider::obtainDataShouldLinkedHighlightAction(KXChartDataUser*, KXChartDataPath*)
{
    return false;
}

KXChartDataPath* KXChartDataProvider::obtainDataLinkedHighlightTargetPath(KXChartDataUser*, KXChartDataPath*,
                                                                          KXChartDataProvider*)
{
    return nullptr;
}

bool KXChartDataProvider::obtainDataShouldShowToolbox(KXChartDataUser*, KXChartDataPath*) { return false; }

KXChartToolboxMenuContext* KXChartDataProvider::obtainDataToolboxContext(KXChartDataUser*, KXChartDataPath*)
{
    return nullptr;
}

bool KXChartDataProvider::obtainDataShouldDropDownMenu(KXChartDataUser*, KXChartDataPath*) { return false; }

KXChartToolboxMenuContext* KXChartDataProvider::obtainDataDropDownMenuContext(KXChartDataUser*,
                                                                              KXChartDataPath*)
{
    return nullptr;
}

bool KXChartDataProvider::obtainHighlightedValues(KXChartDataUser*, const KXIndexPath&, std::size_t,
                                                  std::span<double>)
{
    return false;
}
