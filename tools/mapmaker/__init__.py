"""Builds a map sheet, its terrain cells and its picture, from the plain data files of data/maps.

Everything is reckoned in whole numbers, with a generator of its own for chance, so that every machine makes the
same bytes. Places are held in units of 1/16 pixel (SUB), heights in decimetres.
"""
