#pragma once

/** A property of a piece of any chart, and the parts that every chart can have. */
enum class KXChartObjectIDProperty : int {
    Title,
    Legend,
    LegendCell,
    Axis,
    TickLabel,
    Toolbox,
    Label,
    Value
};

/** A kind of piece of a bar chart. */
enum class KXBarChartObjectIDPath : int { Series, Category, Bar, StackTotal };

/** A property of a piece of a bar chart. */
enum class KXBarChartObjectIDProperty : int { Color, Label };

/** A kind of piece of a line chart. */
enum class KXLineChartObjectIDPath : int { Series, Category, Point, AssistantLine };

/** A property of a piece of a line chart. */
enum class KXLineChartObjectIDProperty : int { Color, Label };

/** A kind of piece of a pie chart. */
enum class KXPieChartObjectIDPath : int { Pie, Slice };

/** A kind of piece of a heat map. */
enum class KXHeatMapChartObjectIDPath : int { Row, Column, Cell };

/** A property of a piece of a heat map. */
enum class KXHeatMapChartObjectIDProperty : int { Color, Label };
