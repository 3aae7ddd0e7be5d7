"""Files that the program may remove at any moment."""


def size_of(path):
    """In bytes; 0 if the file is gone."""
    try:
        return path.stat().st_size
    except FileNotFoundError:
        return 0
