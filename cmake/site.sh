# Sourced after setup.sh: serves the example site on this machine until the command ends.
# shellcheck shell=bash disable=SC2154
need_server lighttpd
site_log=$(mktemp)
server=
stop_site() {
    [ -z "$server" ] || kill "$server" 2>/dev/null || true
    rm -f "$site_log"
}
trap stop_site EXIT

# serve_site: starts the server and sets `site` to its URL. It tries random ports until one is free.
serve_site() {
    local try port
    for try in 1 2 3 4 5 6 7 8 9 10; do
        port=$((20000 + RANDOM % 20000))
        TARNWICK_SITE=$root/examples/site TARNWICK_PORT=$port \
            /usr/sbin/lighttpd -D -f examples/lighttpd.conf 2>"$site_log" &
        server=$!
        until (exec 3<>"/dev/tcp/127.0.0.1/$port") 2>/dev/null; do
            kill -0 "$server" 2>/dev/null || break
        done
        site=http://127.0.0.1:$port/
        ! kill -0 "$server" 2>/dev/null || return 0
    done
    cat "$site_log" >&2
    return 1
}
