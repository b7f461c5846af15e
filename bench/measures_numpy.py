#!/usr/bin/env python3
"""The measures of a cell as one would write them with numpy and scipy, for the benchmarks to compare with.

    measures_numpy.py FOLDER NAME    prints the seconds that NAME takes on the arrays in FOLDER
"""

import sys
import time as clock
from pathlib import Path

import numpy as np
from scipy import interpolate, ndimage, optimize, signal, spatial, stats

folder, name = Path(sys.argv[1]), sys.argv[2]


def array(file, kind):
    return np.fromfile(folder / file, kind)


def correlation(a, b):
    both = np.isfinite(a) & np.isfinite(b)
    return np.corrcoef(a[both], b[both])[0, 1]


def train():
    spikes, interval = times, np.diff(times)
    found = [(interval < 2000).mean(), interval.std() / interval.mean(), (interval < 6000).mean()]
    both = interval[1:] + interval[:-1]
    found.append((2 * abs(np.diff(interval)) / np.maximum(both, 1)).mean())
    found.append(stats.beta.ppf([0.025, 0.975], (interval < 2000).sum() + [0, 1], interval.size))
    lags = np.zeros(251)
    for apart in range(1, spikes.size):
        lag = spikes[apart:] - spikes[:-apart]
        if lag.min() > 501e3:
            break
        lags += np.bincount(np.minimum((lag + 1000) // 2000, 251), minlength=252)[:251]
    lags[0] = lags[1:].max()
    mirrored = np.append(lags[:0:-1], lags)
    power = abs(np.fft.rfft(mirrored - mirrored.mean(), 2**16))**2
    return found, power[164:1442].argmax()


def waveform():
    average, deviation = samples.mean(axis=0), samples.std(axis=0, ddof=1)
    wire = np.ptp(average, axis=0).argmax()
    curve = interpolate.CubicSpline(np.arange(32), average[:, wire], bc_type='natural')
    peak = max(curve.derivative().roots(extrapolate=False), key=curve)
    height = samples[:, :, wire].max(axis=1).astype(float)
    part = np.arange(height.size) * 20 // height.size
    medians = [np.median(height[part == k]) for k in range(20)]
    above = height - np.quantile(height, 0.01)
    ratio = above.var() / above.mean()**2

    def missed(xi):
        d = stats.norm.pdf(xi) / stats.norm.sf(xi) - xi
        return (1 - d * (d + xi)) / d**2 - ratio
    return peak, deviation, np.polyfit(np.arange(20), medians, 1), optimize.brentq(missed, -30, 0)


def separation():
    own, other = features[member], features[~member]
    within = [np.cov(side.T) * (len(side) - 1) for side in (own, other)]
    along = np.linalg.solve(sum(within), own.mean(axis=0) - other.mean(axis=0))
    d = abs((own @ along).mean() - (other @ along).mean()) / np.sqrt(((own @ along).var() + (other @ along).var()) / 2)
    thin = np.concatenate([side[np.linspace(0, len(side) - 1, 5000).astype(int)] for side in (own, other)])
    thin /= features.std(axis=0)
    nearest = spatial.cKDTree(thin).query(thin, 6)[1][:, 1:]
    return d, (nearest < 5000).mean(axis=1)


def isolation():
    own, other = features[member], features[~member]
    away = other - own.mean(axis=0)
    squared = (away @ np.linalg.inv(np.cov(own.T)) * away).sum(axis=1)
    return np.sort(squared)[len(own) - 1], stats.chi2.sf(squared, features.shape[1]).sum() / len(own)


def binned(kept, weights=None):
    return np.histogram2d(y[kept], x[kept], (edges, edges), weights=weights)[0]


def smooth(values):
    return ndimage.gaussian_filter(values, 2, mode='constant')


def rate_map(at, kept):
    spent = binned(kept, hold[kept])
    with np.errstate(invalid='ignore', divide='ignore'):
        return np.where(spent > 0, smooth(binned(at)) / smooth(spent), np.nan), spent


def information(rate, spent):
    share = spent / spent.sum()
    ratio = np.nan_to_num(rate) / np.nansum(share * rate)
    return (share * ratio * np.log2(np.where(ratio > 0, ratio, 1))).sum()


def overlap(a, b):
    return signal.fftconvolve(a, b[::-1, ::-1])


def autocorrelogram(rate):
    one, value = np.isfinite(rate).astype(float), np.nan_to_num(rate)
    n, ab = overlap(one, one), overlap(value, value)
    a, aa = overlap(value, one), overlap(value**2, one)
    b, bb = a[::-1, ::-1], aa[::-1, ::-1]
    with np.errstate(invalid='ignore', divide='ignore'):
        return np.where(n > 19.5, (n * ab - a * b) / np.sqrt((n * aa - a**2) * (n * bb - b**2)), np.nan)


def grid(rate):
    r = autocorrelogram(rate)
    dy, dx = np.indices(r.shape) - (np.array(r.shape) // 2)[:, None, None]
    far = np.hypot(dy, dx)
    turned = [ndimage.rotate(np.nan_to_num(r), angle, reshape=False, order=1) for angle in (30, 60, 90, 120, 150)]
    scores = []
    for outer in range(10, 37):
        ring = (far > 6) & (far <= outer)
        c = [correlation(r[ring], copy[ring]) for copy in turned]
        scores.append(min(c[1], c[3]) - max(c[0], c[2], c[4]))
    return max(scores)


def border(rate):
    value = np.nan_to_num(rate)
    fields, count = ndimage.label(value > 0.3 * value.max())
    cover = max((side == k).mean() for k in range(1, count + 1)
                for side in (fields[0], fields[-1], fields[:, 0], fields[:, -1]))
    row, column = np.indices(rate.shape)
    near = np.minimum.reduce([row, rate.shape[0] - 1 - row, column, rate.shape[1] - 1 - column])
    far = (value * near)[fields > 0].sum() / value[fields > 0].sum() / 20
    return (cover - far) / (cover + far)


def tuning(at):
    spent = np.bincount((direction // 6).astype(int), hold, minlength=60)
    fired = np.bincount((direction[at] // 6).astype(int), minlength=60)
    return ndimage.gaussian_filter1d(fired.astype(float), 1, mode='wrap') / ndimage.gaussian_filter1d(spent, 1, mode='wrap')


def speed(at):
    rate = np.convolve(np.bincount(at, minlength=time.size), kernel, 'same') / held
    return correlation(rate[running], velocity[running])


def behaviour(at):
    rate, spent = rate_map(at, everything)
    curve = tuning(at)
    vector = abs((curve * np.exp(1j * np.radians(np.arange(3, 360, 6)))).sum()) / curve.sum()
    halves = [rate_map(at[at // half == k], everything[everything // half == k])[0].ravel() for k in (0, 1)]
    return information(rate, spent), grid(rate), border(rate), vector, speed(at), correlation(*halves)


def cell():
    return behaviour(np.searchsorted(time, times, side='right') - 1)


def chance():
    for shift in np.random.default_rng(1).uniform(20e6, time[-1] - time[0] - 20e6, 1000):
        moved = np.sort(time[0] + (times - time[0] + shift) % (time[-1] - time[0]))
        behaviour(np.searchsorted(time, moved, side='right') - 1)


def correlogram():
    counts = np.zeros(100)
    for spike in times:
        near = others[np.searchsorted(others, spike - 50_000):np.searchsorted(others, spike + 50_000)]
        counts += np.bincount((near - spike) // 1000 + 50, minlength=100)
    return counts


if name in ('cell', 'chance'):
    time, x, y, direction = (array(file, float) for file in ('time', 'x', 'y', 'direction'))
    hold, half, everything = np.diff(time, append=time[-1]) / 1e6, time.size // 2, np.arange(time.size)
    edges = np.arange(0, 401, 10)
    x, y = x - 120, y - 40
    kernel = np.exp(-0.5 * (np.arange(-30, 31) / 7.5)**2)
    held = np.convolve(hold, kernel, 'same')
    velocity = np.hypot(np.gradient(x), np.gradient(y)) / 4 / 0.0333
    running = velocity >= 2
if name in ('train', 'cell', 'chance', 'correlogram'):
    times = array('spikes', np.int64)
    if name in ('cell', 'chance'):
        times = times[::10]
if name == 'correlogram':
    times, others = times[::2], times[1::2]
if name == 'waveform':
    samples = array('samples', np.int16).reshape(-1, 4, 32).transpose(0, 2, 1)
if name in ('separation', 'isolation'):
    features = np.fromfile(folder / 'features', float).reshape(8, -1).T
    member = array('member', np.uint8) > 0

took = []
while len(took) < 3 and sum(took) < 5:
    begin = clock.perf_counter()
    globals()[name]()
    took.append(clock.perf_counter() - begin)
print(min(took))
