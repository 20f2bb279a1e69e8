// SPDX-License-Identifier: MIT
// The words of the design files: fonts, colours and alignments by short names, so that a control stays on
// one line.
#pragma once

#include "platform/forms/Colours.h"
#include "platform/forms/Fonts.h"
#include "platform/forms/Wordings.h"

namespace torvane {

using Fonts::M8;
using Fonts::M8b;
using Fonts::T9u;
using Fonts::V8;
using Fonts::V8b;
using Fonts::V9b;

constexpr FontSpec verdana(double points) { return {FontSpec::Verdana, points, true}; }
constexpr FontSpec trebuchet(double points) { return {FontSpec::TrebuchetMS, points, true}; }

using Colours::black;
using Colours::buttonFace;
using Colours::white;
constexpr OleColour slate = 0x4A3933;  // dark panel, back of edit fields and lists
constexpr OleColour indigo = 0x644D4E; // back of buttons and of the right panel
constexpr OleColour haze = 0xB09A93;   // back of lists and fields of the tag database
constexpr OleColour band = 0x1A1A1A;   // title band and its buttons

constexpr Qt::Alignment flushLeft = Qt::AlignLeft;
constexpr Qt::Alignment flushRight = Qt::AlignRight;
constexpr Qt::Alignment centred = Qt::AlignHCenter;

/// A tool tip, and the name of what shows no words: Spanish, with its key in the language files.
constexpr Wording tip(const char* key, const char* text) { return {"ToolTips", key, text}; }
constexpr Wording spoken(const char* key, const char* text) { return {"Access", key, text}; }
/// A name that is the same in every language.
constexpr Wording always(const char* text) { return {"", "", text}; }

} // namespace torvane
