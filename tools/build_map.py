#!/usr/bin/python3
"""Makes a map sheet: build_map.py DATA PICTURE TERRAIN writes the picture (a bitmap) and the terrain cells."""

import os
import sys

try:
    from mapmaker import cover, picture, relief, roads, sources, water
except ImportError as fault:
    sys.exit(f"build_map: {fault}; the Debian package python3-pil has it")


def build(data, picture_path, terrain_path):
    def path(name):
        return os.path.join(data, name)

    frame = sources.Frame(path("frame.txt"))
    rivers = sources.read_rivers(path("rivers.txt"), frame)
    towns = sources.read_towns(path("towns.txt"), frame)
    spots = sources.read_heights(path("heights.txt"), frame)
    areas, labels = sources.read_areas(path("woods.txt"), frame)

    wet = water.lay_rivers(rivers, frame)
    level = relief.heights(frame, spots, wet)
    grid = cover.Grid(frame)
    cover.lay_water(grid, wet)
    cover.build_towns(grid, frame, towns)
    cover.grow_areas(grid, frame, level, areas)
    cover.scatter_copses(grid, frame, level)
    ways = sources.read_roads(path("roads.txt"), frame, towns)
    roads.build_roads(ways, rivers, grid, frame, level)
    cover.mark_high_ground(grid, frame, level, over=230)

    cover.write_terrain(terrain_path, grid, frame)
    picture.draw(picture_path, picture.Sheet(frame, grid, level, rivers, towns, spots, labels, ways))
    return frame, grid, rivers, towns, ways


def main():
    if len(sys.argv) != 4:
        sys.exit(__doc__)
    try:
        build(*sys.argv[1:])
    except (sources.BadData, OSError) as fault:
        sys.exit(f"build_map: {fault}")


if __name__ == "__main__":
    main()
