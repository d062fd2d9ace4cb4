"""A Dask DataFrame column formatted on a two-worker distributed cluster with
map_partitions and a pickled Formatter gives exactly the local result."""

import numpy as np
import pandas as pd
import pytest

import dask.dataframe as dd
from distributed import Client, LocalCluster

import xfmt
from conftest import CONTROL_FILE


@pytest.mark.dask
def test_map_partitions_on_a_local_cluster_equals_the_local_result():
    rng = np.random.default_rng(17)
    n = 20000
    df = pd.DataFrame({
        "day": rng.integers(-2000, 30000, n).astype("float64"),
        "amount": rng.normal(0, 1e5, n).round(2),
        "age": rng.integers(0, 90, n).astype("float64"),
    })
    df.loc[::97, "day"] = np.nan
    date9 = xfmt.Formatter("DATE9.")
    money = xfmt.Formatter("DOLLAR14.2")
    agegrp = xfmt.Formatter("AGEGRP.", formats=xfmt.load_formats(CONTROL_FILE))

    def format_partition(part, formatter):
        return pd.Series(formatter.format(part), index=part.index, dtype=object)

    with LocalCluster(n_workers=2, processes=True, threads_per_worker=1, dashboard_address=None) as cluster, \
            Client(cluster) as client:
        assert len(client.scheduler_info()["workers"]) == 2
        ddf = dd.from_pandas(df, npartitions=8)
        out = ddf.assign(
            day_text=ddf["day"].map_partitions(format_partition, date9, meta=("day", object)),
            amount_text=ddf["amount"].map_partitions(format_partition, money, meta=("amount", object)),
            age_text=ddf["age"].map_partitions(format_partition, agegrp, meta=("age", object)),
        ).compute()
    assert out["day_text"].tolist() == date9.format(df["day"])
    assert out["amount_text"].tolist() == money.format(df["amount"])
    assert out["age_text"].tolist() == agegrp.format(df["age"])
    assert out["day_text"].iloc[0] == "."
