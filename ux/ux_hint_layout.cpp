#include "ux/ux_hint_layout.h"

#include "ux/ux_color_contrast.h"
#include "ux/ux_hint_info.h"
#include "ux/ux_saturate.h"
#include "ux/ux_string.h"
#include "ux/ux_text_measurer.h"

#include <algorithm>
#include <cmath>
#include <span>
#include <string>

namespace {

// Logical units
constexpr int paddingX = 12, paddingY = 9, rowGap = 4, headGap = 2, groupGap = 7, separatorHeight = 1;
constexpr int symbolSize = 9, longSymbolWidth = 14, symbolGap = 7, columnGap = 18, leastWidth = 24,
              ownMaxWidth = 360;
constexpr int titleSize = 13, textSize = 12;
constexpr int wrapLineMode = 1;
constexpr UXColor strongColor(17, 24, 39), quietColor(75, 85, 99);
// Of a line that is too narrow for both, a value takes this much before its label is given any.
constexpr int valueShare = 3, ofShares = 5;

/** The last text is one that no rows follow: it says what the others lead to. */
enum class Role { Title, LoneTitle, Text, LastText, Label, Value };

/** How much of a hint is given up, so that the rest fits. */
enum class Level { Whole, OneLineHead, TitleAndRows };

UXTextProperty obtainOwnLook(Role role)
{
    UXTextProperty look;
    look.font.size = role == Role::Title ? titleSize : textSize;
    look.font.bold = role == Role::Title;
    look.lineMode = role == Role::Label || role == Role::Value ? 2 : wrapLineMode;
    look.textColor = role == Role::Text || role == Role::Label ? quietColor : strongColor;
    return look;
}

/** A property that nobody touched leaves the look to the hint. */
UXTextProperty obtainLook(const UXTextProperty& wanted, Role role, const UXColor& ground)
{
    UXTextProperty look = wanted == UXTextProperty() ? obtainOwnLook(role) : wanted;
    look.textColor = uxMakeReadableColor(look.textColor, ground);
    if (look.lineMode != wrapLineMode && look.option == UXTextOption::Default)
        look.option = UXTextOption::EllipsisEnd;
    return look;
}

int roundUp(double length) { return uxSaturateToInt(std::ceil(length)); }

int measureWidth(const std::string& text, const UXTextProperty& look)
{
    return roundUp(uxMeasureText(text, look.font, UXTextOption::Default, 2).width);
}

int measureHeight(const std::string& text, const UXTextProperty& look, int width)
{
    return roundUp(uxMeasureText(text, look.font, look.option, look.lineMode, width).height);
}

/** A line needs some length to be told from another one. */
int obtainSymbolWidth(UXSymbolStyle style)
{
    const bool isCompact = style == UXSymbolStyle::Rectangle || style == UXSymbolStyle::Circle ||
                           style == UXSymbolStyle::ThreeVerticalDots;
    return isCompact ? symbolSize : longSymbolWidth;
}

bool isBlank(const UXHintRowInfo& row) { return row.blankHeight > 0; }

/** A line on its way into the layout. */
struct Item {
    UXHintLine line;
    int labelWidth = 0, valueWidth = 0; // as long as their texts are
    int height = 0;
};

class Builder {
public:
    Builder(const UXHintInfo& info, const UXSize& limit, const UXColor& ground, const std::string& moreText,
            Level level)
        : m_info(info), m_limit(limit), m_ground(ground), m_moreText(moreText), m_level(level)
    {
    }

    /** @param minRows how many rows have to be shown, as far as there are any
     *  @return whether the hint fits */
    bool build(int minRows, UXHintLayout& layout);

private:
    void _collect();
    void _addHead(const std::string& text, const UXTextProperty& wanted, Role role);
    Item _makeTextItem(const std::string& text, const UXTextProperty& look) const;
    Item _makeDetailsItem(const UXHintRowInfo& row) const;
    bool _chooseColumns();
    void _limitColumns();
    void _arrangeAcross(std::span<Item> items) const;
    void _arrangeDetails(Item& item) const;
    UXRect _obtainSymbolRect(UXSymbolStyle style, int lineHeight) const;
    static int _obtainHeight(std::span<const Item> items, int gap);
    bool _limitRows(int available, int minRows);
    std::size_t _countHiddenRows() const;
    void _stack(UXHintLayout& layout) const;

    const UXHintInfo& m_info;
    UXSize m_limit;
    UXColor m_ground;
    const std::string& m_moreText;
    Level m_level;
    std::vector<Item> m_head, m_rows, m_footer;
    std::size_t m_shownRows = 0; // of those of the hint; m_rows can hold one more line
    int m_symbolColumn = 0, m_labelColumn = 0, m_valueColumn = 0, m_gap = 0, m_width = 0;
    bool m_hasLabels = false;
};

bool Builder::build(int minRows, UXHintLayout& layout)
{
    _collect();
    if (m_head.empty() && m_rows.empty() && m_footer.empty())
        return false;
    if (!_chooseColumns())
        return false;
    _arrangeAcross(m_head);
    _arrangeAcross(m_rows);
    _arrangeAcross(m_footer);

    const bool hasAbove = !m_head.empty() || !m_rows.empty();
    int fixed = 2 * paddingY + _obtainHeight(m_head, headGap) + _obtainHeight(m_footer, rowGap);
    fixed += !m_head.empty() && !m_rows.empty() ? groupGap : 0;
    fixed += hasAbove && !m_footer.empty() ? 2 * groupGap + separatorHeight : 0;
    if (!_limitRows(m_limit.height - fixed, minRows))
        return false;
    _stack(layout);
    return true;
}

void Builder::_collect()
{
    const bool isAlone = m_info.text.empty() && m_info.rows.empty() && m_info.footerRows.empty();
    _addHead(m_info.title, m_info.titleProperty, isAlone ? Role::LoneTitle : Role::Title);
    if (m_level != Level::TitleAndRows)
        _addHead(m_info.text, m_info.textProperty, m_info.rows.empty() ? Role::LastText : Role::Text);

    // No more rows are measured than could fit if all were one unit high.
    const int most = std::max(m_limit.height, 0) / (rowGap + 1) + 1;
    for (const UXHintRowInfo& row : m_info.rows) {
        if (std::cmp_greater_equal(m_rows.size(), most))
            break;
        m_rows.push_back(_makeDetailsItem(row));
    }
    for (const UXHintRowInfo& row : m_info.footerRows) {
        if (m_level == Level::TitleAndRows || std::cmp_greater_equal(m_footer.size(), most))
            break;
        m_footer.push_back(_makeDetailsItem(row));
    }
}

void Builder::_addHead(const std::string& text, const UXTextProperty& wanted, Role role)
{
    if (text.empty())
        return;
    UXTextProperty look = obtainLook(wanted, role, m_ground);
    if (m_level != Level::Whole) {
        look.lineMode = 2;
        look.option = look.option == UXTextOption::Default ? UXTextOption::EllipsisEnd : look.option;
    }
    m_head.push_back(_makeTextItem(text, look));
}

Item Builder::_makeTextItem(const std::string& text, const UXTextProperty& look) const
{
    Item item;
    item.line.content.label = text;
    item.line.content.labelProperty = look;
    item.labelWidth = measureWidth(text, look);
    return item;
}

Item Builder::_makeDetailsItem(const UXHintRowInfo& row) const
{
    Item item;
    item.line.isDetails = true;
    item.line.content = row;
    if (isBlank(row)) {
        item.height = row.blankHeight;
        return item;
    }
    UXHintRowInfo& content = item.line.content;
    content.labelProperty = obtainLook(row.labelProperty, Role::Label, m_ground);
    content.valueProperty = obtainLook(row.valueProperty, Role::Value, m_ground);
    item.labelWidth = measureWidth(row.label, content.labelProperty);
    item.valueWidth = measureWidth(row.value, content.valueProperty);
    return item;
}

bool Builder::_chooseColumns()
{
    int widest = 0, label = 0;
    for (const Item& item : m_head)
        widest = std::max(widest, item.labelWidth);
    for (const std::vector<Item>* items : {&m_rows, &m_footer}) {
        for (const Item& item : *items) {
            const UXHintRowInfo& content = item.line.content;
            if (isBlank(content))
                continue;
            m_hasLabels = m_hasLabels || content.showSymbol || !content.label.empty();
            if (content.showSymbol)
                m_symbolColumn = std::max(m_symbolColumn, obtainSymbolWidth(content.symbolStyle) + symbolGap);
            // A label without a value may run on under the values.
            (content.value.empty() ? label : m_labelColumn) = std::max(
                content.value.empty() ? label : m_labelColumn, item.labelWidth);
            m_valueColumn = std::max(m_valueColumn, item.valueWidth);
        }
    }
    m_gap = m_hasLabels && m_valueColumn > 0 ? columnGap : 0;
    const auto sum = [](std::int64_t a, std::int64_t b, std::int64_t c, std::int64_t d) {
        return uxSaturateToInt(a + b + c + d);
    };
    m_width = std::max(
        {widest, sum(m_symbolColumn, label, 0, 0), sum(m_symbolColumn, m_labelColumn, m_gap, m_valueColumn)});

    const int wanted = m_info.maxWidth > 0 ? m_info.maxWidth : ownMaxWidth;
    const int most = std::min(wanted, m_limit.width) - 2 * paddingX;
    m_width = std::min(m_width, most);
    _limitColumns();
    return most >= leastWidth;
}

/** Gives the columns what there is, the values first. */
void Builder::_limitColumns()
{
    const int room = std::max(m_width - m_symbolColumn - m_gap, 0);
    const int offered = uxSaturateToInt(
        std::max(std::int64_t{room} * valueShare / ofShares, std::int64_t{room} - m_labelColumn));
    m_valueColumn = std::min(m_valueColumn, m_hasLabels ? offered : room);
    m_labelColumn = room - m_valueColumn;
}

void Builder::_arrangeAcross(std::span<Item> items) const
{
    for (Item& item : items) {
        if (item.line.isDetails) {
            _arrangeDetails(item);
            continue;
        }
        const UXHintRowInfo& content = item.line.content;
        item.height = measureHeight(content.label, content.labelProperty, m_width);
        item.line.labelRect = UXRect(0, 0, m_width, item.height);
    }
}

void Builder::_arrangeDetails(Item& item) const
{
    UXHintLine& line = item.line;
    UXHintRowInfo& content = line.content;
    if (isBlank(content))
        return;
    const int labelWidth = content.value.empty() ? m_width - m_symbolColumn : m_labelColumn;
    const int labelHeight = measureHeight(content.label, content.labelProperty, labelWidth);
    const int valueHeight = measureHeight(content.value, content.valueProperty, m_valueColumn);
    item.height = std::max({labelHeight, valueHeight, content.showSymbol ? symbolSize : 0});
    // A wrapped label has its symbol and its value beside the first line.
    const int firstLine = std::min(item.height,
                                   std::max(measureHeight("0", content.labelProperty, -1), symbolSize));
    if (content.showSymbol)
        line.symbolRect = _obtainSymbolRect(content.symbolStyle, firstLine);
    if (!content.label.empty())
        line.labelRect = UXRect(m_symbolColumn, 0, labelWidth, std::max(labelHeight, firstLine));
    if (!content.value.empty()) {
        content.valueProperty.align = m_hasLabels ? UXTextAlign::Right : UXTextAlign::Left;
        line.valueRect = UXRect(m_width - m_valueColumn, 0, m_valueColumn, std::max(valueHeight, firstLine));
    }
}

/** @return the middle of the symbols' column, beside a line of text */
UXRect Builder::_obtainSymbolRect(UXSymbolStyle style, int lineHeight) const
{
    const int width = obtainSymbolWidth(style);
    return {(m_symbolColumn - symbolGap - width) / 2, (lineHeight - symbolSize + 1) / 2, width, symbolSize};
}

int Builder::_obtainHeight(std::span<const Item> items, int gap)
{
    std::int64_t height = 0;
    for (const Item& item : items)
        height += item.height + (&item == items.data() ? 0 : gap);
    return uxSaturateToInt(height);
}

/** Leaves out the last rows where not all have room, and adds a line that says so. */
bool Builder::_limitRows(int available, int minRows)
{
    m_shownRows = m_rows.size();
    const bool isComplete = m_rows.size() == m_info.rows.size() && m_info.omittedRowCount == 0;
    if (isComplete && _obtainHeight(m_rows, rowGap) <= available)
        return available >= 0;
    // What is omitted needs the line, though all that is here may have room.
    if (m_info.omittedRowCount > 0)
        ++m_shownRows;

    Item more;
    do {
        if (m_shownRows == 0)
            return false;
        --m_shownRows;
        m_rows.resize(m_shownRows);
        // No free room stands above the last line.
        if (!m_rows.empty() && isBlank(m_rows.back().line.content))
            continue;
        const std::size_t hidden = _countHiddenRows();
        if (hidden == 0)
            break;
        const std::string text = uxReplaceString(m_moreText, "%1", uxToString(uxSaturateToInt(hidden)));
        more = _makeTextItem(text, obtainLook({}, Role::Label, m_ground));
        // Under the labels.
        _arrangeAcross({&more, 1});
        more.line.labelRect.x = m_symbolColumn;
        more.line.labelRect.width -= m_symbolColumn;
        m_rows.push_back(more);
        if (_obtainHeight(m_rows, rowGap) <= available)
            break;
        m_rows.pop_back();
    } while (true);
    return std::cmp_greater_equal(m_shownRows, minRows);
}

std::size_t Builder::_countHiddenRows() const
{
    const auto hidden = std::count_if(m_info.rows.begin() + static_cast<std::ptrdiff_t>(m_shownRows),
                                      m_info.rows.end(),
                                      [](const UXHintRowInfo& row) { return !isBlank(row); });
    return static_cast<std::size_t>(hidden) + m_info.omittedRowCount;
}

void Builder::_stack(UXHintLayout& layout) const
{
    int y = paddingY;
    const auto add = [&](std::span<const Item> items, int gap) {
        for (const Item& item : items) {
            y += &item == items.data() ? 0 : gap;
            UXHintLine line = item.line;
            line.rect = UXRect(paddingX, y, m_width, item.height);
            if (!isBlank(line.content))
                layout.lines.push_back(line);
            y += item.height;
        }
    };
    add(m_head, headGap);
    y += !m_head.empty() && !m_rows.empty() ? groupGap : 0;
    add(m_rows, rowGap);
    if (!m_footer.empty() && y > paddingY) {
        layout.separatorY = y + groupGap;
        y += 2 * groupGap + separatorHeight;
    }
    add(m_footer, rowGap);
    layout.size = UXSize(m_width + 2 * paddingX, y + paddingY);
}

} // namespace

UXHintLayout uxLayOutHint(const UXHintInfo& info, const UXSize& limit, const UXColor& ground,
                          const std::string& moreText)
{
    UXHintLayout layout;
    for (const Level level : {Level::Whole, Level::OneLineHead, Level::TitleAndRows}) {
        const int minRows = level != Level::TitleAndRows && !info.rows.empty() ? 1 : 0;
        if (Builder(info, limit, ground, moreText, level).build(minRows, layout))
            return layout;
    }
    return {};
}
