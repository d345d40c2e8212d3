#pragma once

#include <string>

struct KXChartDiagnostic;

/** @return a diagnostic in one line: what it is, the text it is about, its place, and why */
[[nodiscard]] std::string writeDiagnostic(const KXChartDiagnostic& diagnostic);
