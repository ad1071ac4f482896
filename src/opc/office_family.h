// The two families of URIs that Office documents use for the same things.
#pragma once

namespace zorkanca {

/// Transitional is what the office writes; strict is the standard's own, which it reads and can write.
enum class OfficeFamily { kTransitional, kStrict };

}  // namespace zorkanca
