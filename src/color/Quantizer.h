// Few colours for the many of a picture.
//
// The pixels are counted in a histogram of 5 bits a channel, X. Wu's cuts ("Efficient statistical
// computations for optimal color quantization", 1991) part it into boxes, and weighted k-means in
// OKLab goes on from the boxes' means: M. E. Celebi, "Improving the performance of k-means for
// color quantization" (2011). Nothing in it is random: the same pixels have the same clusters.
#pragma once

#include <QRgb>

#include <span>
#include <vector>

struct ColorCluster {
    QRgb color;   // the mean of its pixels in OKLab; opaque
    double share; // of all pixels, above 0 to 1
};

/// At most that many clusters, the largest first; fewer where the pixels have fewer colours. Of a
/// picture with few flat colours these are the clusters' colours, to the bit. The pixels' alpha
/// counts for nothing. None for no pixels, or no clusters.
std::vector<ColorCluster> quantized(std::span<const QRgb> pixels, int count);

/// The distance in OKLab from a pixel to the nearest cluster, on average; 0 for no pixels or no
/// clusters.
double meanError(std::span<const QRgb> pixels, std::span<const ColorCluster> clusters);
