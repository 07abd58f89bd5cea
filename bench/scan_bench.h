// The measurements, registered with Google Benchmark.
#pragma once

namespace tarvelo {

// Scans over whole images beside a plain pass over the same memory.
void RegisterScans();

// Searches that find something nearly everywhere beside the plain loop that defines what is found.
void RegisterDenseSearches();

}  // namespace tarvelo
