#include "fuzz_board.h"

#include "fuzz_field.h"
#include "fuzz_settings.h"
#include "ux/ux_context.h"
#include "ux/ux_diagram.h"
#include "ux/ux_scroll_content_view.h"
#include "ux/ux_virtual_scroll_view.h"

#include <utility>

FuzzBoard::FuzzBoard(FuzzInput& input, UXContext& context, UXDiagram& diagram, std::function<void()> act)
    : m_input(input), m_context(context), m_diagram(diagram), m_act(std::move(act)), m_preview(&context),
      m_links(&context), m_scrolling(&context), m_hints(&context)
{
    for (UXGlobalEventDiagram* global :
         {static_cast<UXGlobalEventDiagram*>(&m_links), static_cast<UXGlobalEventDiagram*>(&m_scrolling),
          static_cast<UXGlobalEventDiagram*>(&m_hints)})
        diagram.registerGlobalEventDiagram(global);
    m_context.addDiagram(&m_preview);
    m_preview.setRect({0, 0, 64, 64});
    m_preview.setSourceDiagram(&diagram);
    m_context.setActiveDiagram(&m_previewControl, &m_preview);
    m_previewControl.setUseCases({1});
    m_previewControl.setControlRect({0, 0, 64, 64});
    m_scrollView.setRect({448, 448, 64, 64});
    m_scrollView.setContentSize({100, 300});
    diagram.addChild(&m_scrollView);
    _addField();
}

void FuzzBoard::_addField()
{
    auto* field = new FuzzField(m_act);
    field->setRect({4, 4, 50, 20});
    m_field = UXObjectWatcher(field);
    m_scrollView.getContentView()->addChild(field);
}

void FuzzBoard::change()
{
    const int choice = m_input.takeBelow(16);
    if (choice < 5)
        _changeGlobals(choice);
    else if (choice < 9)
        _changeScrollView(choice);
    else if (choice < 13)
        _changeField(choice);
    else if (choice == 13)
        _changePreview();
    else if (choice == 14)
        FuzzSettings(m_input).reload(m_context, m_context);
    else
        m_context.repaint();
}

void FuzzBoard::_changeGlobals(int choice)
{
    UXGlobalEventDiagram* globals[] = {&m_links, &m_scrolling, &m_hints};
    UXGlobalEventDiagram* global = globals[m_input.takeBelow(3)];
    switch (choice) {
    case 0:
        return m_diagram.unregisterGlobalEventDiagram(global);
    case 1:
        return m_diagram.bringGlobalEventDiagramToFront(global);
    case 2:
        return global->endActions();
    default:
        return m_diagram.registerGlobalEventDiagram(global);
    }
}

void FuzzBoard::_changeScrollView(int choice)
{
    const int x = m_input.takeInt();
    const int y = m_input.takeInt();
    switch (choice) {
    case 5:
        return m_scrollView.setContentSize({x, y});
    case 6:
        return m_scrollView.setRect({448, 448, x, y});
    case 7:
        m_scrollView.setAlwaysShowScrollBar(m_input.takeBool());
        return m_scrollView.setPadding({x, y, 1, 2});
    default:
        m_scrollView.getScroller()->setContentOffsetX(x);
        m_scrollView.getScroller()->setContentOffsetY(y);
    }
}

void FuzzBoard::_changeField(int choice)
{
    auto* field = dynamic_cast<FuzzField*>(m_field.getObject());
    if (!field)
        return _addField();
    switch (choice) {
    case 9:
        delete field;
        return;
    case 10:
        field->setInputText(m_input.takeText());
        return field->setCaretPosition(m_input.takeByte());
    case 11:
        field->setText(m_input.takeText());
        field->setRotation(m_input.takeNumber());
        return field->autoResize();
    default: {
        const auto type = static_cast<UXEventResponderType>(m_input.takeBelow(6));
        return field->registerEventResponder(type, [act = m_act](const UXEvent&) {
            act();
            return true;
        });
    }
    }
}

void FuzzBoard::_changePreview()
{
    const int x = m_input.takeInt();
    m_preview.setUseContentRect(m_input.takeBool());
    m_preview.setUseCaseZoomRatio(m_input.takeNumber());
    m_preview.setUseCaseOrigin({x, m_input.takeInt()});
    m_preview.setSourceDiagram(m_input.takeBelow(4) != 0 ? &m_diagram : nullptr);
    m_preview.layout();
}
