# Sourced by the scripts: quiet, reproducible dotnet.
export DOTNET_CLI_TELEMETRY_OPTOUT=1
export DOTNET_NOLOGO=1
export DOTNET_SKIP_FIRST_TIME_EXPERIENCE=1
jobs=$(nproc 2>/dev/null || echo 2)
