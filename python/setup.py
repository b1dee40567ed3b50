"""The binaries are made before: a wheel with them is for one Python and one kind of machine."""

from setuptools import Distribution, setup


class BinaryDistribution(Distribution):
    def has_ext_modules(self):
        return True


setup(distclass=BinaryDistribution)
