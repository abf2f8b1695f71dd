#pragma once

#include "job.h"

/// Sets the sums of all cards from their levels, and fixes the cards whose level is not an automatic one.
JobResult SetSumClnt(JobContext &context);
