# Slurm on this machine alone, in a folder of its own: munged with a key and a socket of its own,
# slurmctld and slurmd on free ports. To be sourced; needs root.
#   startSlurm FOLDER    then SLURM_CONF is set; fails with the reason on standard error
#   stopSlurm            ends the three daemons, by their process numbers

slurmDaemons=()

# A daemon's last words, where it is what failed.
slurmFailed() { # slurmFailed FOLDER WHAT LOG
  echo "Slurm does not start: $2" >&2
  [ -z "${3:-}" ] || tail -n 5 "$1/$3" | sed "s/^/  $3: /" >&2
  return 1
}

slurmConfiguration() { # slurmConfiguration FOLDER
  local host ports
  host=$(hostname -s)
  ports=$((20000 + $$ % 20000))
  cat <<END
ClusterName=tests
SlurmctldHost=$host
SlurmctldAddr=127.0.0.1
SlurmUser=root
AuthType=auth/munge
AuthInfo=socket=$1/munge.socket,cred_expire=5
StateSaveLocation=$1/state
SlurmdSpoolDir=$1/spool
SlurmctldPidFile=$1/slurmctld.pid
SlurmdPidFile=$1/slurmd.pid
SlurmctldPort=$ports
SlurmdPort=$((ports + 1))
ProctrackType=proctrack/linuxproc
TaskPlugin=task/none
SelectType=select/cons_tres
SelectTypeParameters=CR_CPU
JobAcctGatherType=jobacct_gather/none
MpiDefault=none
ReturnToService=2
SchedulerParameters=sched_min_interval=100000,batch_sched_delay=0,defer
JobRequeue=1
NodeName=$host NodeAddr=127.0.0.1 CPUs=$(nproc) State=UNKNOWN
PartitionName=debug Nodes=ALL Default=YES MaxTime=INFINITE State=UP
END
}

startMunge() { # startMunge FOLDER
  head -c 128 /dev/urandom >"$1/munge.key"
  chmod 400 "$1/munge.key"
  munged --foreground --force --key-file="$1/munge.key" --socket="$1/munge.socket" \
    --pid-file="$1/munge.pid" --log-file="$1/munge.log" --seed-file="$1/munge.seed" \
    >"$1/munged.out" 2>&1 &
  slurmDaemons+=($!)
  for _ in $(seq 200); do
    munge -n --socket="$1/munge.socket" 2>/dev/null | unmunge --socket="$1/munge.socket" >/dev/null 2>&1 &&
      return 0
    sleep 0.1
  done
  slurmFailed "$1" "munged gives no credentials" munged.out
}

startSlurm() {
  local folder=$1 program
  for program in munged slurmctld slurmd sbatch; do
    command -v "$program" >/dev/null ||
      { slurmFailed "$folder" "there is no $program (packages slurm-wlm and munge)"; return 1; }
  done
  [ "$(id -u)" = 0 ] || { slurmFailed "$folder" "it takes a root"; return 1; }
  mkdir -p "$folder/state" "$folder/spool"
  startMunge "$folder" || return 1
  slurmConfiguration "$folder" >"$folder/slurm.conf"
  export SLURM_CONF=$folder/slurm.conf
  slurmctld -D >"$folder/slurmctld.log" 2>&1 &
  slurmDaemons+=($!)
  sleep 1
  slurmd -D -N "$(hostname -s)" >"$folder/slurmd.log" 2>&1 &
  slurmDaemons+=($!)
  for _ in $(seq 300); do
    [ "$(timeout 10 sinfo -h -o %T 2>/dev/null)" = idle ] && return 0
    sleep 0.2
  done
  slurmFailed "$folder" "the node does not become idle" slurmd.log || slurmFailed "$folder" "" slurmctld.log
}

stopSlurm() {
  local pid
  for pid in "${slurmDaemons[@]}"; do kill "$pid" 2>/dev/null; done
  for pid in "${slurmDaemons[@]}"; do wait "$pid" 2>/dev/null; done
  slurmDaemons=()
}
