"""Verifies a package for rootless devices; see packaging/check. Python's standard library and dpkg-deb only."""
