# SPDX-License-Identifier: LGPL-2.1-or-later
"""Every misbehaviour of a station: FAULTS, by its name. fault_table.py tells what a row is."""
# Each adds its rows, in this order.
import opening_faults  # noqa: F401, I001
import streaming_faults  # noqa: F401
import titles_faults  # noqa: F401
import lists_faults  # noqa: F401
from fault_table import FAULTS

__all__ = ["FAULTS"]
