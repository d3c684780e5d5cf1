#pragma once

namespace mox::kernels {

// Whether the first tap belongs to the newest sample or, reversed, to the oldest one.
enum class TapOrder { forward, reversed };

}  // namespace mox::kernels
