// The name and the version under which the program presents itself.
#pragma once

namespace tavrel {

/// The product's name as the About dialog shows it; never translated.
inline constexpr char productName[] = "Tavrel KV";

/// Major, minor and patch number of this program, not those of the camera or of its SDK.
inline constexpr char productVersion[] = "1.4.1";

} // namespace tavrel
