// Keys and what is held with them, with the system's codes.
#pragma once

namespace ui {

namespace key {
inline constexpr int Tab = 9;
inline constexpr int Enter = 13;
inline constexpr int Escape = 27;
inline constexpr int Space = 32;
inline constexpr int End = 35;
inline constexpr int Home = 36;
inline constexpr int Up = 38;
inline constexpr int Down = 40;
inline constexpr int Insert = 45;
inline constexpr int Delete = 46;
inline constexpr int Menu = 93;  // the one beside the right Ctrl
inline constexpr int F1 = 112;
inline constexpr int F2 = 113;
inline constexpr int F10 = 121;
}  // namespace key

// A key that is no part of a text. Letters have the code of their capital.
struct KeyChord {
    int key = 0;
    bool control = false;
    bool alt = false;
    bool shift = false;
    bool operator==(const KeyChord&) const = default;
};

}  // namespace ui
