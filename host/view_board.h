#pragma once

#include "ux/ux_context.h"
#include "ux/ux_diagram.h"
#include "ux/ux_size.h"
#include "view_card.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

class ChartDataSource;
class ChartDocument;
class KXChart;
class KXChartTheme;
struct ChartSample;
struct ViewItemHandlers;

/** Charts on one diagram, each on a card: what a window shows. A board of another kind derives from this and
 * arranges its cards otherwise. */
class ViewBoard {
public:
    ViewBoard();
    virtual ~ViewBoard();
    ViewBoard(const ViewBoard&) = delete;
    ViewBoard& operator=(const ViewBoard&) = delete;

    UXContext& getContext() { return m_context; }
    UXDiagram& getDiagram() { return m_diagram; }

    // Charts
    /** Opens a document over its data. Throws HostError for what cannot be read or understood.
     *  @param handlers what clicks on the chart's items do; outlives this object */
    void openSample(const ChartSample& sample, const ViewItemHandlers& handlers);
    /** @param chart its owner's; it goes before the board does */
    void addChart(KXChart& chart);
    std::size_t getChartCount() const { return m_cards.size(); }
    KXChart& getChart(std::size_t index) const { return m_cards[index]->getChart(); }

    /** Gives every card its place, and the diagram the size that they need.
     *  @param room what a window shows without scrolling, logical units */
    virtual void arrange(const UXSize& room);

    // Look
    /** Gives charts and cards the colours of a theme in place of the one before, but for those that documents
     * set.
     *  @param theme copied; null for the look that charts are made with */
    virtual void takeTheme(const KXChartTheme* theme);
    /** Goes on to the next theme of the library; after the last one comes the usual look. */
    void takeNextTheme();
    /** @return the name of the theme, empty without one */
    std::string getThemeName() const;
    /** @return what is seen between the cards */
    UXColor getGround() const;

    // Keyboard
    /** @return the card whose chart, or a part of it, receives keys; null for none */
    ViewCard* getFocusedCard() const;
    /** Hands the keys on to the next card, or the one before, and shows where they are. */
    void moveFocus(bool forwards);
    /** Hides the ring until the keyboard is used again. */
    void hideFocusRing();
    /** Does what a left click on the focused chart does. */
    void activateFocusedChart();

protected:
    const std::vector<std::unique_ptr<ViewCard>>& getCards() const { return m_cards; }
    /** Gives a card its place on the diagram, which has its size.
     *  @param rect as the board runs from left to right; one that does not is mirrored */
    void placeCard(std::size_t index, const UXRect& rect);

private:
    // Charts leave their cards first, and cards their diagram; what charts ask goes last.
    std::vector<std::unique_ptr<ChartDataSource>> m_sources;
    UXContext m_context;
    UXDiagram m_diagram{&m_context};
    std::unique_ptr<KXChartTheme> m_theme; // null for none
    std::vector<std::unique_ptr<ViewCard>> m_cards;
    std::vector<std::unique_ptr<ChartDocument>> m_documents;
};
