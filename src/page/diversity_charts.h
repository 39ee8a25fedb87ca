// Diversity over time, close matings and classes of inbreeding, from the cohorts of the birth years.
#pragma once

#include "page/chart.h"
#include "page/page_frame.h"

namespace pedigreewatch {

/// What is left of the founders' diversity and what has been lost, by birth year.
Chart gene_diversity_chart(const PageFrame& frame);

/// The share of the young with F above 6.25 and above 12.5 %.
Chart close_young_chart(const PageFrame& frame);

/// Animals by classes of F.
Chart inbreeding_classes_chart(const PageFrame& frame);

/// Matings of near relatives.
Chart close_matings_chart(const PageFrame& frame);

}  // namespace pedigreewatch
