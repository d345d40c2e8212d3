#pragma once

/** @return the text of ux_cairo_fonts.conf, which is built into the library */
const char* uxCairoFontsConf();
