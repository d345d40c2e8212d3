#pragma once

#include "ux/ux_diagram.h"
#include "ux/ux_double_rect.h"
#include "ux/ux_image.h"
#include "ux/ux_text_property.h"

#include <string>

/** Shows an image with a text below it, both in the middle: what a host puts up while there is nothing else
 * to show. */
class UX_EXPORT UXTextImageDiagram : public UXDiagram {
public:
    explicit UXTextImageDiagram(UXContext* context = nullptr);
    ~UXTextImageDiagram() override;

    const std::string& getText() const { return m_text; }
    /** @param text as it is shown; it wraps where it is wider than the diagram */
    void setText(const std::string& text);
    const UXTextProperty& getTextProperty() const { return m_textProperty; }
    void setTextProperty(const UXTextProperty& property);
    const UXImage& getImage() const { return m_image; }
    /** @param image shrinks, and keeps its shape, where it is larger than the room above the text */
    void setImage(const UXImage& image);

    /** @return where the image and the text were laid out last, in the own space; empty for what is missing
     */
    const UXDoubleRect& getImageRect() const { return m_imageRect; }
    const UXDoubleRect& getTextRect() const { return m_textRect; }

    // From UXObject
    std::string customSerializeTypeID() override;
    void paint(UXPaintConfig* config, UXRect dirtyRect) override;

protected:
    void customLayout() override;

private:
    std::string m_text;
    UXTextProperty m_textProperty;
    UXImage m_image;
    UXDoubleRect m_imageRect, m_textRect;
};
