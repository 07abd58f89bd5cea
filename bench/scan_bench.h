// Registers the measurements with Google Benchmark.
#pragma once

namespace tarvelo {

// Scans over whole images, compared with a plain pass over the same memory.
void RegisterScans();

// Searches with hits or near hits nearly everywhere, compared with the plain loop that defines the result.
void RegisterDenseSearches();

}  // namespace tarvelo
