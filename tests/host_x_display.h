#pragma once

#include "host_child_process.h"
#include "ux/ux_size.h"

#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>

/** An X display of its own without a screen, a person's hand at its mouse and keys, and an eye on its pixels.
 */
class XDisplay {
public:
    static constexpr UXSize size{1000, 700};

    XDisplay()
    {
        for (const char* program : {"Xvfb", "xdotool"}) {
            if (ChildProcess({"which", program}).readTo("/").empty()) {
                m_problem = program;
                return;
            }
        }
        std::string pattern = (std::filesystem::temp_directory_path() / "kx_display_XXXXXX").string();
        m_folder = mkdtemp(pattern.data());
        const std::string screen = std::to_string(size.width) + "x" + std::to_string(size.height) + "x24";
        // However this test ends, the display ends some time.
        m_server = std::make_unique<ChildProcess>(std::vector<std::string>{
            "timeout", "250", "Xvfb", "-displayfd", "1", "-screen", "0", screen, "-fbdir", m_folder.string(),
            "-nolisten", "tcp", "-noreset", "-nocursor"});
        const std::vector<std::string> lines = m_server->readTo("");
        if (lines.empty())
            m_problem = "display";
        else
            m_variable = "DISPLAY=:" + lines.back();
    }
    ~XDisplay()
    {
        m_server.reset();
        std::error_code ignored;
        if (!m_folder.empty())
            std::filesystem::remove_all(m_folder, ignored);
    }

    /** @return what is missing, empty when nothing is */
    const std::string& getProblem() const { return m_problem; }
    /** @return "DISPLAY=:..." */
    const std::string& getVariable() const { return m_variable; }

    /** @param command xdotool's, such as {"key", "Tab"} @return the first line that it answers */
    std::string act(std::vector<std::string> command) const
    {
        command.insert(command.begin(), "xdotool");
        const std::vector<std::string> lines = ChildProcess(command, {m_variable}).readTo("");
        return lines.empty() ? "" : lines[0];
    }

    /** @return red, green and blue of the pixels at the top left, row by row */
    std::vector<std::uint32_t> look(const UXSize& area) const
    {
        std::ifstream file(m_folder / "Xvfb_screen0", std::ios::binary);
        const std::string bytes{std::istreambuf_iterator<char>(file), {}};
        const auto readField = [&](std::size_t index) { // of the header, most significant byte first
            std::size_t value = 0;
            for (std::size_t i = index * 4; i < index * 4 + 4; ++i)
                value = value << 8 | static_cast<unsigned char>(bytes.at(i));
            return value;
        };
        constexpr std::size_t headerSize = 0, rowBytes = 12, colorCount = 19, bytesPerColor = 12;
        const std::size_t begin = readField(headerSize) + readField(colorCount) * bytesPerColor;
        std::vector<std::uint32_t> pixels;
        for (int y = 0; y < area.height; ++y) {
            for (int x = 0; x < area.width; ++x) {
                std::uint32_t pixel = 0;
                std::memcpy(&pixel,
                            &bytes.at(begin + static_cast<std::size_t>(y) * readField(rowBytes) +
                                      static_cast<std::size_t>(x) * 4),
                            4);
                pixels.push_back(pixel & 0xffffff);
            }
        }
        return pixels;
    }

private:
    std::string m_problem, m_variable;
    std::filesystem::path m_folder;
    std::unique_ptr<ChildProcess> m_server;
};
