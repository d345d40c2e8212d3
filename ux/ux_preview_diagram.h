#pragma once

#include "ux/ux_use_case_diagram.h"

/** Shows its source whole, as large as its own rectangle allows and in the middle of it. */
class UX_EXPORT UXPreviewDiagram : public UXUseCaseDiagram {
public:
    explicit UXPreviewDiagram(UXContext* context = nullptr);
    ~UXPreviewDiagram() override;

    // From UXUseCaseDiagram: what fits, whatever was set
    UXPoint getUseCaseOrigin() const override;
    /** @return 1 where one of the two rectangles is empty */
    double getUseCaseZoomRatio() const override;

    // From UXObject
    std::string customSerializeTypeID() override;
};
