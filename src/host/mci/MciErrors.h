// The result codes of command strings, and their texts.
#pragma once

#include <cstdint>
#include <string_view>

namespace velorin::host {

namespace mci {

constexpr std::uint32_t success = 0;
constexpr std::uint32_t unknownCommand = 261;
constexpr std::uint32_t hardwareFailed = 262;
constexpr std::uint32_t notOpen = 263;
constexpr std::uint32_t noDriver = 266;
constexpr std::uint32_t noCommand = 267;
constexpr std::uint32_t badNumber = 270;
constexpr std::uint32_t missingValue = 273;
constexpr std::uint32_t cannotDo = 274;
constexpr std::uint32_t fileNotFound = 275;
constexpr std::uint32_t notReady = 276;
constexpr std::uint32_t outOfRange = 282;
constexpr std::uint32_t notSaved = 286;
constexpr std::uint32_t aliasInUse = 289;
constexpr std::uint32_t unknownWord = 259;
constexpr std::uint32_t missingDevice = 292;
constexpr std::uint32_t badTimeFormat = 293;
constexpr std::uint32_t badFile = 296;
constexpr std::uint32_t newNeedsAlias = 299;
constexpr std::uint32_t badFormat = 322;
constexpr std::uint32_t noInput = 323;

} // namespace mci

/// Empty for an unknown code.
[[nodiscard]] std::string_view mciErrorText(std::uint32_t code);

} // namespace velorin::host
