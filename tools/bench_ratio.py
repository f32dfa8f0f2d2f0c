#!/usr/bin/env python3
"""Turn Google Benchmark JSON runs of rows <kernel>/<impl>/<len> into a markdown table of
nuvs throughput and the ratio peer time / nuvs time (above 1.0: nuvs is faster).
Usage: bench_ratio.py RUN.json [SUFFIX=RUN.json ...]; the peers of each extra run are listed
with the suffix appended and measured against the nuvs rows of their own run where it has them,
so that drift between runs does not enter a ratio."""
import json
import sys
from collections import defaultdict


def main():
    times = defaultdict(dict)  # (kernel, len) -> column -> ns
    own = defaultdict(dict)    # (kernel, len) -> column -> nuvs ns of the same run
    runs = [('', sys.argv[1])] + [tuple(a.split('=', 1)) for a in sys.argv[2:]]
    for suffix, path in runs:
        rows = {}
        for b in json.load(open(path))['benchmarks']:
            if b.get('run_type') == 'aggregate' and b.get('aggregate_name') != 'median':
                continue
            kernel, impl, length = b.get('run_name', b['name']).split('/')[:3]
            rows[(kernel, int(length), impl)] = b
        for (kernel, length, impl), b in rows.items():
            key = (kernel, length)
            if impl == 'nuvs':
                if not suffix:
                    times[key]['nuvs'] = b['real_time']
                    times[key]['_gbs'] = b.get('bytes_per_second', 0) / 1e9
                continue
            times[key][impl + suffix] = b['real_time']
            mine = rows.get((kernel, length, 'nuvs'))
            if mine:
                own[key][impl + suffix] = mine['real_time']
    peers = sorted({i for t in times.values() for i in t if i not in ('nuvs', '_gbs')})
    out = ['| kernel | len | nuvs GB/s | ' + ' | '.join(f'{p} ratio' for p in peers) + ' |',
           '|---|---:|---:|' + '---:|' * len(peers)]
    worst = []
    for (kernel, length) in sorted(times, key=lambda k: (k[0], k[1])):
        t = times[(kernel, length)]
        if 'nuvs' not in t:
            continue
        cells = []
        for p in peers:
            if p in t:
                r = t[p] / own[(kernel, length)].get(p, t['nuvs'])
                cells.append(f'{r:.2f}')
                worst.append((r, kernel, length, p))
            else:
                cells.append('')
        out.append(f'| {kernel} | {length} | {t["_gbs"]:.1f} | ' + ' | '.join(cells) + ' |')
    print('\n'.join(out))
    below = sorted(x for x in worst if x[0] < 1.0)
    if below:
        print('\nBelow 1.0: ' + ', '.join(f'{k}/{n} vs {p} {r:.2f}' for r, k, n, p in below))


if __name__ == '__main__':
    main()
